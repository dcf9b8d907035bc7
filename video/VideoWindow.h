#pragma once

#include "capture/PictureWriter.h"
#include "toolkit/ChildForm.h"

#include <QTimer>

#include <functional>
#include <memory>

class AutoRun;
class Frame;
class Transport;
class ltmmPlay;

/// Makes the player control, as a child of its argument.
using PlayerFactory = std::function<ltmmPlay*(QWidget*)>;

/// The window that holds the player and one open video.
class VideoWindow : public ChildForm {
    Q_OBJECT

public:
    VideoWindow(Frame& frame, Transport& transport, const PlayerFactory& makePlayer);
    ~VideoWindow() override;

    /// Opens the selection in FileNames or, when FromList is set, the video that VideoPath names. Never
    /// plays. Reports no failure: without a video the transport is disabled. With AutoCapture on it hands a
    /// selection over to one of the two runs below, the one by time before the one by frames.
    void OpenVideo();
    /// Stops the player and takes its video away, in the size that every open begins with.
    void ResetPlayer();
    /// Gives the player, just reset, an address of the web; false when the user did not wait for it. Throws
    /// ControlError when it cannot be opened.
    bool LoadAddress(const QString& address);
    /// Starts an automatic capture of the selection by time, or by frames. The run goes on in the event loop
    /// until its list is done, something else is opened or the window closes.
    void CaptureTimeYes();
    void CaptureFrame();
    /// Leaves an automatic capture; the pictures written stay.
    void StopCapture();
    /// Title, size and transport for the address just loaded.
    void ShowLoadedAddress();
    /// Leaves the transport without a video, after an address was not loaded.
    void ShowNoVideo();
    /// Only one of capture and save is open to the user, by what the settings say about captures.
    void SwapCaptureCommands();
    /// Works out VideoName and VideoFolder and shows the title.
    void UpdateVideoTitle();

    ltmmPlay& Player() { return *ltmmPlay1; }

    /// The file that an MPEG video is loaded into memory from. Nothing in the program sets it, so with
    /// LoadVid on such a video ends with an empty player.
    QString MemoryLoadPath;
    bool Closing = false; ///< the user closed it, which also stops a running automatic capture
    bool EndReached = false; ///< the video stands at exactly 100 percent
    /// Captures that the automatic run has made, less one after the first.
    int UserCaptures() const;

Q_SIGNALS:
    void ListWanted(); ///< several videos were selected and their list is to be shown
    void ListUnwanted();
    void OpenWanted(); ///< the window's own open button was pressed; playing has stopped

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Build(const PlayerFactory& makePlayer);
    void BuildHead();
    void Bind();
    void BindPlayer();
    void GiveSource();
    /// Measures of the player in twips; the window keeps its room around it.
    void SizeAround(double width, double height);
    void ShowSizePopup();
    void GrowToMinimum();
    bool StartsRun();
    template <typename Run> void StartRun();
    void ShowRunOver();

    void ShowProgress(int position);
    void TellError(int code);
    void CloseClicked();
    void OpenClicked();

    Frame& frame_;
    Transport& transport_;
    ltmmPlay* ltmmPlay1 = nullptr;
    StripButton* sizes_ = nullptr;
    bool isGone_ = false;
    QTimer Timer1; ///< grows a window that was sized too small
    QTimer Timer3; ///< hides the flashing label
    QTimer FlashTimer; ///< shows it again
    PictureWriter writer_; ///< of automatic captures; its numbers run on from one to the next
    std::unique_ptr<AutoRun> run_;
};
