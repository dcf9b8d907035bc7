#pragma once

#include "app/ControlError.h"
#include "video/ltmmPlay.h"

#include <functional>
#include <utility>

/// A player without media: it remembers what it was told, counts the stills it gave and fails when a test
/// says so.
class FakePlayer : public ltmmPlay {
public:
    using ltmmPlay::ltmmPlay;

    PlayState state = Stopped;
    QString file;
    QByteArray memory;
    int frame = 0;
    int frameCount = 100;
    double framesPerSecond = 25;
    QSize size { 6, 4 };
    int capabilities = MarkStart | MarkEnd | ToStart | ToEnd;
    double rate = 1;
    double fastestRate = 5;
    DisplayMode displaySize = FitToWindow;
    bool fullScreen = false;
    bool closedCaption = false;
    bool mute = false;
    bool autoRewind = false;
    int playCount = 1;
    double selectionStart = 0;
    double selectionEnd = 0;
    bool wasCancelled = false;
    bool failsStills = false;
    int stillsGiven = 0;
    int lastTimeout = 0;

    /// The picture of a still: its number stands in every pixel's red.
    QImage StillNumber(int number) const
    {
        QImage picture(size, QImage::Format_BGR888);
        picture.fill(QColor(number % 256, 90, 30));
        return picture;
    }

    /// An address or file that cannot be opened.
    QString refused;
    QString beginning; ///< the file that is being loaded
    /// One whose opening the user cancels.
    QString cancelled;

    /// Told of each call of an open, before it is carried out.
    std::function<void(const char* call)> whenAsked = [](const char*) {};

    /// Told when a file or an address was loaded or refused, as the last of that call.
    std::function<void()> whenLoaded = [] {};

    void SetSourceFile(const QString& name) override
    {
        whenAsked("SetSourceFile");
        beginning.clear();
        wasCancelled = !name.isEmpty() && name == cancelled;
        file = name == refused || wasCancelled ? QString() : name;
        const auto told = whenLoaded; // which may end this object
        told();
    }
    void BeginSourceFile(const QString& name) override
    {
        file.clear();
        beginning = name;
        QMetaObject::invokeMethod(
            this,
            [this, name] {
                if (std::exchange(beginning, QString()) != name)
                    return;
                SetSourceFile(name);
                Q_EMIT SourceOpened();
            },
            Qt::QueuedConnection);
    }
    bool WasCancelled() const override { return wasCancelled; }
    QString SourceFile() const override { return file; }
    Source SourceKind() const override
    {
        return !memory.isEmpty() ? MemorySource : file.isEmpty() ? NoSource : FileSource;
    }
    void SetSourceMemory(const QByteArray& block) override { memory = block; }
    QByteArray SourceMemory() const override { return memory; }
    void ResetSource() override
    {
        whenAsked("ResetSource");
        beginning.clear();
        file.clear();
        memory.clear();
    }

    void Run() override { state = Running; }
    void Pause() override { state = Paused; }
    void Stop() override
    {
        whenAsked("Stop");
        state = Stopped;
    }
    PlayState State() const override { return state; }

    double CurrentPosition() const override { return frame / framesPerSecond; }
    void SetCurrentPosition(double seconds) override { frame = int(seconds * framesPerSecond); }
    double Duration() const override { return frameCount / framesPerSecond; }
    int CurrentFrame() const override { return frame; }
    void SetCurrentFrame(int number) override { frame = number; }
    int FrameCount() const override { return frameCount; }
    void NextFrame() override { frame = qMin(frame + 1, frameCount - 1); }
    void PreviousFrame() override { frame = qMax(frame - 1, 0); }
    void SeekStart() override { frame = 0; }
    void SeekEnd() override { frame = frameCount - 1; }
    int TrackingPosition() const override
    {
        return frameCount > 1 ? frame * TrackingMax() / (frameCount - 1) : 0;
    }
    void SetTrackingPosition(int position) override { frame = position * (frameCount - 1) / 10000; }
    int TrackingMax() const override { return SourceKind() == NoSource ? 0 : 10000; }
    int CheckSeeking(int mask) const override { return capabilities & mask; }

    void SetSelectionStart(double seconds) override { selectionStart = seconds; }
    void SetSelectionEnd(double seconds) override { selectionEnd = seconds; }
    void MarkSelectionStart() override { selectionStart = CurrentPosition(); }
    void MarkSelectionEnd() override { selectionEnd = CurrentPosition(); }
    void SetAutoRewind(bool rewind) override { autoRewind = rewind; }
    void SetPlayCount(int count) override { playCount = count; }

    void SetMute(bool on) override { mute = on; }
    double Rate() const override { return rate; }
    void SetRate(double value) override { rate = value; }
    bool IsRateSupported(double value) const override { return value > 0 && value <= fastestRate; }

    DisplayMode DisplaySize() const override { return displaySize; }
    void SetDisplaySize(DisplayMode mode) override
    {
        whenAsked("SetDisplaySize");
        displaySize = mode;
    }
    double VideoWidth() const override { return SourceKind() == NoSource ? 0 : size.width() * 15.0; }
    double VideoHeight() const override { return SourceKind() == NoSource ? 0 : size.height() * 15.0; }
    bool FullScreen() const override { return fullScreen; }
    void SetFullScreen(bool on) override { fullScreen = on; }
    bool ClosedCaption() const override { return closedCaption; }
    void ToggleClosedCaption() override { closedCaption = !closedCaption; }

    /// A running video moves on between two stills.
    QImage GetStillPicture(int timeoutMs) override
    {
        lastTimeout = timeoutMs;
        if (failsStills)
            throw ControlError(QStringLiteral("No picture could be had in time."));
        ++stillsGiven;
        if (state == Running)
            NextFrame();
        return StillNumber(frame);
    }

    QString ErrorText(int code) const override { return QStringLiteral("Reason %1.").arg(code); }
};
