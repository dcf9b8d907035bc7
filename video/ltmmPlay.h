#pragma once

#include "app/ControlError.h"
#include "desktop/Dib.h"
#include "desktop/FileName.h"

#include <QByteArray>
#include <QImage>
#include <QWidget>

#include <new>

/// The player control: one video, shown in this widget, exact to the frame.
/// All members are called on the user-interface thread; a call that needs the engine waits for it, bounded.
/// SetCurrentFrame, NextFrame, PreviousFrame, SetRate and the stills throw ControlError (app/ControlError.h);
/// every other call, and whatever happens to the media at any time, tells its failures by PlayerError.
class ltmmPlay : public QWidget {
    Q_OBJECT

public:
    enum PlayState { Stopped = 1, Paused = 2, Running = 3 };
    enum DisplayMode {
        FitToWindow = 0,
        StretchToWindow = 1,
        Normal = 2,
        ThreeQuarters = 3,
        Half = 4,
        Double = 5
    };
    enum Source { NoSource = 0, FileSource = 1, MemorySource = 2, ArraySource = 3 };
    /// Bits of CheckSeeking.
    enum Capability { MarkStart = 1, MarkEnd = 2, ToStart = 4, ToEnd = 8, EveryCapability = 15 };

    using QWidget::QWidget;

    /// Loads a file (see desktop/FileName.h for names that are no text) or an address; returns when the first
    /// frame stands on the screen or the attempt has failed, which PlayerError tells. An empty name drops the
    /// source. While an address opens, events are handled and the user can cancel; the player may be gone
    /// afterwards.
    virtual void SetSourceFile(const QString& file) = 0;
    /// Drops the source and begins to load another, without a wait: there is none until SourceOpened tells
    /// that the first frame stands on the screen, or that the attempt has failed.
    virtual void BeginSourceFile(const QString& file) = 0;
    virtual QString SourceFile() const = 0;
    virtual Source SourceKind() const = 0;
    /// Whether there is no source because the user did not wait for it to open.
    virtual bool WasCancelled() const = 0;
    /// A block that holds a whole media file.
    virtual void SetSourceMemory(const QByteArray& block) = 0;
    virtual QByteArray SourceMemory() const = 0;
    /// Drops the source; the widget is empty afterwards.
    virtual void ResetSource() = 0;

    virtual void Run() = 0;
    virtual void Pause() = 0;
    virtual void Stop() = 0;
    virtual PlayState State() const = 0;

    /// Seconds from the start of the media.
    virtual double CurrentPosition() const = 0;
    virtual void SetCurrentPosition(double seconds) = 0;
    virtual double Duration() const = 0;
    /// Ordinal of the shown frame in presentation order, from 0. After SetCurrentFrame(n) it is n.
    virtual int CurrentFrame() const = 0;
    virtual void SetCurrentFrame(int frame) = 0;
    /// Exact number of frames; waits, bounded, while the index of a large file is still growing.
    virtual int FrameCount() const = 0;
    /// Whether FrameCount would not wait.
    virtual bool HasFrameCount() const { return true; }
    /// Makes ready what a caller asks for that will go to first, first + stride … by SetCurrentFrame and take
    /// a still of each; said again before every frame, it goes on where it was. A caller that does something
    /// else ends it.
    virtual void ExpectFrames(int first, int stride)
    {
        Q_UNUSED(first)
        Q_UNUSED(stride)
    }
    /// Whether SetCurrentFrame need not wait for an expected frame; true of one that is not expected.
    virtual bool IsFrameReady(int frame) const
    {
        Q_UNUSED(frame)
        return true;
    }
    virtual void NextFrame() = 0;
    virtual void PreviousFrame() = 0;
    virtual void SeekStart() = 0;
    virtual void SeekEnd() = 0;
    /// The place on a scale from 0 to TrackingMax, which is 10000 with a source and 0 without.
    virtual int TrackingPosition() const = 0;
    virtual void SetTrackingPosition(int position) = 0;
    virtual int TrackingMax() const = 0;
    /// Which bits of mask (Capability) the source can do.
    virtual int CheckSeeking(int mask) const = 0;

    /// Bounds of the selection in seconds.
    virtual void SetSelectionStart(double seconds) = 0;
    virtual void SetSelectionEnd(double seconds) = 0;
    virtual void MarkSelectionStart() = 0;
    virtual void MarkSelectionEnd() = 0;
    virtual void SetAutoRewind(bool rewind) = 0;
    /// 1 plays once, 0 for ever.
    virtual void SetPlayCount(int count) = 0;

    virtual void SetMute(bool mute) = 0;
    virtual double Rate() const = 0;
    virtual void SetRate(double rate) = 0;
    virtual bool IsRateSupported(double rate) const = 0;

    virtual DisplayMode DisplaySize() const = 0;
    virtual void SetDisplaySize(DisplayMode mode) = 0;
    /// Natural size in twips, in square pixels and rotated as tagged; 0 without a source.
    virtual double VideoWidth() const = 0;
    virtual double VideoHeight() const = 0;
    virtual bool FullScreen() const = 0;
    virtual void SetFullScreen(bool on) = 0;
    void ToggleFullScreen() { SetFullScreen(!FullScreen()); }
    virtual bool ClosedCaption() const = 0;
    virtual void ToggleClosedCaption() = 0;

    /// The shown frame at source resolution in square pixels (24-bit pictures are QImage::Format_BGR888).
    /// Throws ControlError when no frame can be had within timeoutMs milliseconds, and after Stop until the
    /// video runs or moves again.
    virtual QImage GetStillPicture(int timeoutMs) = 0;
    /// The same picture as a device-independent bitmap that the caller owns. Throws ControlError also when
    /// the memory does not suffice.
    Dib GetStillDIB(int timeoutMs)
    {
        try {
            return Dib::FromImage(GetStillPicture(timeoutMs));
        } catch (const std::bad_alloc&) {
            throw ControlError(QStringLiteral("There is not enough memory for this picture."));
        }
    }

Q_SIGNALS:
    /// What BeginSourceFile began has come to its end.
    void SourceOpened();
    /// The place on the tracking scale; at most ten times a second, and at every step, seek and end.
    void PlaybackProgress(int position);
    /// Selection bounds on the tracking scale.
    void SelectionChanged(int start, int end);
    void PositionChanged();
    /// IsFrameReady may answer otherwise than before.
    void FramesReady();
    void KeyUp(int key);
    void MousePressed(); ///< by the left button
    /// ErrorText(code) says what the code means.
    void PlayerError(int code);

public:
    /// A short description of a PlayerError code, in the program's words.
    virtual QString ErrorText(int code) const = 0;
};
