#pragma once

#include "app/FormDialog.h"

#include <QPointer>

class Frame;
class QLineEdit;
class TAQbutton;
class VideoWindow;

/// Takes the address of a video on the web and hands it to the player, which reads it from there: no file
/// lands on the disk. Modal; ends when the video stands, and stays open after a failure.
class URLfrm : public FormDialog {
    Q_OBJECT

public:
    URLfrm(Frame& frame, VideoWindow& window, QWidget* owner);

    /// Takes an address as if it were typed and, when it is long enough, confirmed once the window stands.
    void Try(const QString& address);

private:
    void Build();
    void ShowWhetherEnough();
    void Download();
    bool Load(const QString& address);
    void LeaveNoVideo();

    Frame& frame_;
    QPointer<VideoWindow> window_;
    QLineEdit* edtURL;
    TAQbutton* CmdOK;
    bool isLoading_ = false;
};
