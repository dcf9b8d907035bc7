#pragma once

#include "app/Frame.h"
#include "frame/Background.h"
#include "frame/KidTable.h"
#include "frame/Menus.h"
#include "print/cSetDfltPrinter.h"
#include "video/VideoWindow.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <array>
#include <optional>

class ChildForm;
class DigitLabel;
class Documents;
class EmptyState;
class FrameDrag;
class HelpWindow;
class Power;
class QuickShots;
class QLabel;
class QMdiArea;
class QVBoxLayout;
class SizeGrip;
class StripButton;
class TAQbutton;
class TitleStrip;
class Transport;
class TransportPane;
class VideoList;
class Visual;
enum class KeyAction;
struct CommandLine;

/// What the frame stands on, made by main and outliving it.
struct FrameParts {
    ApplicationState& state;
    Clipboard& clipboard;
    FileDialogs& dialogs;
    ErrorBox& errors;
    Documents& documents;
    Printers& printers;
    Wallpaper& wallpaper;
    PlayerFactory makePlayer;
};

/// The frame window: title strip, command buttons, child windows, transport and status labels. It knows every
/// window and only wires them.
class Main : public QWidget, public Frame {
    Q_OBJECT

public:
    explicit Main(const FrameParts& parts);
    ~Main() override;

    ApplicationState& State() override { return state_; }
    Clipboard& SystemClipboard() override { return clipboard_; }
    Printers& SystemPrinters() override { return printers_; }
    FileDialogs& Dialogs() override { return dialogs_; }
    ErrorBox& Errors() override { return errors_; }
    Wallpaper& DesktopWallpaper() override { return wallpaper_; }
    QWidget* FrameWindow() override { return this; }
    QWidget* ActiveForm() override;
    Lead* ActiveCapture() override;
    CaptureWindow* ActiveCaptureWindow() override;
    void AddChild(QWidget* form) override;
    void SendToBack(QWidget* form) override;
    void SetStatus(StatusLabel label, const QString& text) override;
    void SetStatusAlert(StatusLabel label, const QString& text) override;
    void ShowStatus(StatusLabel label, bool visible) override;
    void RepaintStatus(StatusLabel label) override;
    void EnableCommand(Command command, bool enabled) override;
    bool IsCommandEnabled(Command command) const override;
    void SetEnabled(bool enabled) override;
    ltmmPlay& CurrentPlayer() override;
    void AddKid(quintptr handle) override;
    void RemoveKid(quintptr handle) override;
    void OpenViewer() override;
    void AddThumbnail() override;
    void ShowThumbnails() override;
    Lead& ThumbHold() override { return *thumbHold_; }
    void ShowFront(bool visible) override;
    void OpenTools() override;
    void OpenVisual() override;
    QImage PicSource() override;
    void ShowFullScreen(const QImage& picture) override;
    void OpenHelp() override;
    void OpenMenus(PopupOwner kind, const QStringList& items, int checkedItems, const QWidget& button,
        std::function<void(int)> chosen) override;
    void PumpEvents() override;
    void PumpPaintEvents() override;

    /// Asks for videos and opens them, whatever window asks. The open stays in progress when nothing is
    /// chosen.
    void OpenVideoNow_Click();
    /// Opens what the program was started with: its videos or, without any, the first other file or address;
    /// and each of its pictures.
    void OpenGiven(const CommandLine& given);
    /// Brings a capture window to the top by its place in the kid table.
    void MakeKidActive(int index);
    /// Opens a document: a guide in the help window, anything else by the desktop. False when it is missing
    /// or nothing opens it.
    bool StartDoc(const QString& document);
    void mnuFullScreen_Click();

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void Build();
    void BuildHead(QVBoxLayout* column);
    void BuildCommands(QVBoxLayout* column);
    void BuildArea(QVBoxLayout* column);
    void BuildFoot(QVBoxLayout* column);
    void Bind();
    void StartTimers();

    VideoWindow& CurrentVideo();
    void RunCommand(Command command);
    /// False when nothing was chosen.
    bool AskForVideos();
    void OpenSelection();
    void OpenFromVideoWindow();
    /// Opens one file past the selection and its extension test.
    void OpenUnlisted(const QString& file);
    void OpenPicture(const QString& file);
    /// The commands for a video that did not come by OpenVideo; the settings may keep Capture closed.
    void OpenCommands();
    /// Opens what the list or its buttons chose; a video window in sight keeps its place.
    void OpenListed();
    /// Shows a child in front in whatever shape it has.
    void ShowInFront(ChildForm& child);
    bool IsFullScreen();
    void LeaveFullScreen();
    bool HasCaptures() const;
    /// A file into the player, past the selection.
    void ShowDropped(const QString& file);
    /// The transport for a video dropped where none was open; the rest of the state stays as it was.
    void ShowDroppedVideo();
    /// Asks for an address; one that is given is tried at once.
    void Download(const QString& address = {});
    void CancelDownload();
    void RevealVideoWindow();
    void ShowVideoList();
    void ShowVideoListIfVideo();
    void CloseVideoList();
    void ActOnKey(KeyAction action);
    /// Presses a command that opens a box.
    void Ask(Command command);
    void CopyActiveCapture();
    void PrintActiveCapture();
    void CloseActiveForm();
    void ShowTools();
    void CloseAllWindows();
    /// Unloads every form whose name differs.
    void CloseAllFormsExcept(const QString& name);
    void UnloadForms();
    /// Opens the options, modally.
    void OpenOptions();
    void ShowPower();
    void ShowPopup();
    void ShowAbout();
    void TellHome();
    void ToggleMaximized();
    void ShowWindowState();
    void ApplyBackground();

    ApplicationState& state_;
    Clipboard& clipboard_;
    FileDialogs& dialogs_;
    ErrorBox& errors_;
    Documents& documents_;
    Printers& printers_;
    Wallpaper& wallpaper_;
    PlayerFactory makePlayer_;
    KidTable kids_;

    TitleStrip* TopBack = nullptr;
    StripButton* Image3 = nullptr;
    StripButton* maximize_ = nullptr;
    StripButton* front1 = nullptr;
    std::array<TAQbutton*, size_t(Command::Count)> Cmds {};
    QWidget* commands_ = nullptr;
    QMdiArea* area_ = nullptr;
    EmptyState* emptyState_ = nullptr;
    TransportPane* BottomPane = nullptr;
    Transport* transport_ = nullptr;
    std::array<QLabel*, size_t(StatusLabel::Count)> labels_ {};
    FrameDrag* drag_ = nullptr;
    SizeGrip* Image2 = nullptr;
    Menus menus_;
    BackgroundPicture background_;
    QPointer<HelpWindow> help_;
    Lead* thumbHold_ = nullptr;
    QPointer<VideoList> videoList_;
    QPointer<QuickShots> quickShots_;
    QPointer<Visual> visual_;
    QPointer<Power> power_;
    bool areOptionsOpening_ = false;
    bool isPrinting_ = false;
    std::optional<cSetDfltPrinter> defaultPrinter_; ///< from the first opening of the options on
    bool areToolsUnwanted_ = false; ///< they come up with a capture no more
    QTimer Timer1; ///< the print button follows the capture windows
    QTimer Timer3; ///< the prompt while no video is open
    QTimer tidying_; ///< after captures came or went, memory goes back
};
