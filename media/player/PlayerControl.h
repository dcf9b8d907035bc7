#pragma once

#include "media/player/OpeningWait.h"
#include "media/player/ProgressMeter.h"
#include "media/player/PulseDevice.h"
#include "media/player/Session.h"
#include "media/player/StrideWatch.h"
#include "video/ltmmPlay.h"
#include <QTimer>
#include <set>

/// The player control on the engine of media/: one engine thread per source, which this widget waits for
/// where it must and else only looks at. Runs no event loop but that of awaitOpening.
class PlayerControl : public ltmmPlay {
    Q_OBJECT

public:
    /// awaitOpening lets the user wait for addresses; with an empty one they wait with the program.
    /// makeSound makes the device that plays the sound; an empty one, or one that makes nothing, plays none.
    explicit PlayerControl(QWidget* parent = nullptr, player::OpeningWait awaitOpening = {},
        player::SoundDeviceMaker makeSound = player::MakePulseDevice);
    ~PlayerControl() override;

    void SetSourceFile(const QString& file) override;
    void BeginSourceFile(const QString& file) override;
    QString SourceFile() const override { return session_ ? file_ : QString(); }
    Source SourceKind() const override { return session_ ? kind_ : NoSource; }
    bool WasCancelled() const override { return wasCancelled_; }
    void SetSourceMemory(const QByteArray& block) override;
    QByteArray SourceMemory() const override { return session_ ? memory_ : QByteArray(); }
    void ResetSource() override;

    void Run() override;
    void Pause() override;
    void Stop() override;
    PlayState State() const override { return state_; }

    double CurrentPosition() const override { return session_ ? shown_.seconds : 0; }
    void SetCurrentPosition(double seconds) override;
    double Duration() const override;
    int CurrentFrame() const override { return session_ ? shown_.number : 0; }
    /// A number behind the last frame leads to the last, one below 0 to the first.
    void SetCurrentFrame(int frame) override;
    int FrameCount() const override;
    bool HasFrameCount() const override { return !session_ || session_->Known().isComplete; }
    void ExpectFrames(int first, int stride) override;
    bool IsFrameReady(int frame) const override;
    void NextFrame() override;
    void PreviousFrame() override;
    void SeekStart() override;
    void SeekEnd() override;
    int TrackingPosition() const override;
    void SetTrackingPosition(int position) override;
    int TrackingMax() const override;
    int CheckSeeking(int mask) const override;

    void SetSelectionStart(double seconds) override;
    void SetSelectionEnd(double seconds) override;
    void MarkSelectionStart() override;
    void MarkSelectionEnd() override;
    void SetAutoRewind(bool rewind) override;
    void SetPlayCount(int count) override;

    void SetMute(bool mute) override;
    double Rate() const override { return options_.rate; }
    void SetRate(double rate) override;
    bool IsRateSupported(double rate) const override;

    DisplayMode DisplaySize() const override { return view_.mode; }
    void SetDisplaySize(DisplayMode mode) override;
    double VideoWidth() const override;
    double VideoHeight() const override;
    bool FullScreen() const override { return view_.isFullScreen; }
    void SetFullScreen(bool on) override;
    bool ClosedCaption() const override { return showsCaptions_; }
    void ToggleClosedCaption() override;

    /// Never waits: the shown frame is at hand, also while playing and while the engine is busy.
    QImage GetStillPicture(int timeoutMs) override;
    QString ErrorText(int code) const override;
    QSize sizeHint() const override;

    /// Engine threads that hang in the system and were left behind; with so many no further source is opened.
    static constexpr int MaxOrphans = 4;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Open(const media::Source& source);
    bool Begin(const media::Source& source);
    bool IsStillWanted();
    void Finish();
    void Fail(media::Failure failure);
    void Drop();
    void Tell(media::Failure failure);
    void Read(const player::Mail& mail);

    void Go(const std::function<player::Shot()>& seek, std::optional<int> put = {});
    void Step(int frames);
    void Halt(PlayState state);
    void Adopt(const player::Shot& shot);
    void Arrive(const player::Shot& shot, std::optional<int> put = {});
    void ReportProgress();

    void Select(const player::Selection& selection);
    void Apply();
    void Look();
    void TakeOwnSize();

    QString file_;
    QByteArray memory_;
    Source kind_ = NoSource;
    bool wasCancelled_ = false;
    PlayState state_ = Stopped;
    bool stoppedByCall_ = false; ///< by Stop, and not by the end of the video: there is no still to be had
    player::PlayOptions options_;
    player::View view_;
    QRect windowedPlace_; ///< among its siblings, while it fills the screen
    std::set<int> pressedKeys_; ///< here, and not released yet
    QSize natural_ { 0, 0 }; ///< of the source's first picture; 0 without a source
    bool showsCaptions_ = false;

    player::OpeningWait awaitOpening_;
    player::SoundDeviceMaker makeSound_;
    std::shared_ptr<std::atomic<int>> running_;
    std::shared_ptr<player::Mailbox> mail_;
    std::shared_ptr<player::Session> opening_; ///< of a source that is not in use yet
    QTimer openingWatch_;
    std::shared_ptr<player::Session> session_;
    player::Shot shown_;
    player::StrideWatch strides_;
    player::ProgressMeter progress_;
    /// The place on the scale that shown_ was asked for by; a frame covers several.
    std::optional<int> trackingPut_;
};
