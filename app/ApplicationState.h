#pragma once

#include "app/CRegSettings.h"
#include "app/ProgramFolders.h"
#include "app/SettingsKeys.h"
#include "app/TextSettings.h"
#include "desktop/Dib.h"

#include <QImage>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <deque>
#include <map>
#include <span>
#include <vector>

/// The values of OpThumb: where a new capture is shown.
enum CapturePlace : qint16 { ThumbnailOnly = 0, ViewerAndThumbnail = 1, ViewerOnly = 2 };

/// A key and the text that is stored under it.
struct KeyText {
    Key key;
    QString text;
};

/// The state that every window shares, made once and living as long as the program. Reached through Frame.
class ApplicationState : public TextSettings {
public:
    /// applicationFolder is the folder of the executable, without a separator at its end; settingsFolder as
    /// in CRegSettings; dataFolder is the user's own for the data of all programs, by default where the
    /// desktop has it.
    explicit ApplicationState(
        const QString& applicationFolder, const QString& settingsFolder = {}, const QString& dataFolder = {});
    ApplicationState(const ApplicationState&) = delete;
    ApplicationState& operator=(const ApplicationState&) = delete;

    /// The load step of the start: names the store, reads the settings, applies the tool tips of frame and
    /// makes the four folders of captures. A step that fails is passed over.
    void LoadApplicationState(QWidget& frame);

    /// Gives every control of a form the tool tip in its property "Tag" when ToolTip is on, and none
    /// otherwise. Forms standing inside the form keep theirs.
    void ApplyToolTips(QWidget& form) const;

    /// The text kept under a key, or the default that reader gives for it.
    QString TextOf(Key key, Reader reader = Reader::StartUp);
    /// Gives a key's variable the value of a text; it keeps its value when the text cannot be converted.
    void SetText(Key key, const QString& text);
    /// Both: reads a key into its variable.
    void Reload(Key key, Reader reader = Reader::StartUp);
    /// The value of a key's variable as the store would have it.
    QString CopyOf(Key key) const;
    /// Writes the value of a key's variable; true when it stands on the disk.
    bool Store(Key key) { return Store({ &key, 1 }); }
    /// The same of several at once: all stand on the disk, or none.
    bool Store(std::span<const Key> keys) { return Store(Copies(keys)); }
    /// Writes texts in place of the variables' values.
    bool Store(std::span<const KeyText> texts);
    /// Stores, and what the store refuses holds for the run: it is read in place of what the store has, until
    /// that takes a text of the key.
    bool Keep(std::span<const KeyText> texts);
    bool Keep(std::span<const Key> keys) { return Keep(Copies(keys)); }

    /// Where the program keeps what it makes.
    const ProgramFolders& Folders() const { return folders_; }
    /// The full path of something that stands beside the executable, or in the user's data where nothing may.
    QString Beside(const QString& name) const;
    /// The folders of captures were made in the user's data at this start, which the user does not know yet.
    bool IsHomeNew = false;

    CRegSettings Settings;
    QString SettingsSection;
    QString HelpPath;

    qint16 KidCount = 0; ///< capture windows open
    std::vector<quintptr> Kids; ///< identities of the capture windows, 0 for a hole

    QPointer<QWidget> CurrentVideo; ///< the one video window
    bool VideoOpen = false; ///< from a video window's activation until it unloads
    QString VideoPath; ///< full path or address of the video being played, also CurrentVideoPath
    QString VideoName; ///< file name part of VideoPath
    QString VideoFolder; ///< folder part of VideoPath, without its last separator
    QString VideoExt; ///< last four characters of VideoPath, lower case, trimmed
    QStringList FileNames; ///< raw selection of the open dialog, from 0
    qint32 FileCount = 0;
    QString FileFolder; ///< the folder given by the dialog
    QStringList
        Videos; ///< full paths that passed the extension test, from 1: entry 0 is unused; also RunList
    qint32 VideoCount = 0; ///< also RunCount
    qint16 ListIndex = 0; ///< place in Videos, from 1
    bool OpenCancelled = false; ///< the user chose nothing
    bool NotVideo = false; ///< result of the extension test
    bool OpeningNow = false; ///< suppresses the next resize layout of the video window
    bool FromList = false; ///< open without building Videos again
    bool FirstOfList = false; ///< the next step in the list plays entry 1
    bool MarksSet = false; ///< at least one selection mark is set
    bool MarksCleared = false; ///< the mark buttons are disabled until the slider moves

    bool ExitRequested = false; ///< the frame or the video window is going away
    qint16 PopupKind = 0; ///< 0 frame, 1 video window, 2 capture window
    QString LastAddress; ///< what the address window held at its last success
    QString CaptureName; ///< path of the file the current capture would be saved to
    QString MessageText; ///< the text last handed to the message form
    bool ShowPlayerErrors = true; ///< the message form may tell errors of the player
    bool ToolsOpen = false;
    QPointer<QWidget> Tools; ///< the one window of edit tools
    bool VisualReady = false; ///< the visual editor found a picture when it was last opened
    bool VisualBusy = false; ///< an operation of the visual editor is running
    bool QuickShotsOpen = false;
    bool TileBackground = false; ///< the frame's background picture is tiled
    QString BackgroundFile; ///< picture file of the frame's background: "PicFolder"

    QString CurrentFile; ///< path of the picture being written, afterwards of the one written
    QString CurrentExt; ///< "Ext" as last read; ".bmp" while a save forces it
    int FormatIndex = 0; ///< row of the format table used by the last save; stays when an extension fits none
    qint16 CaptureWindowCount = 0; ///< capture windows ever opened; numbers them
    std::deque<Dib> StillsTaken; ///< by captures that are not handed over yet; the first is being handed over
    QImage SelectedBitmap; ///< the thumbnail last clicked, null when none
    bool PrintCall = false; ///< the next page that is drawn is printed, not shown
    qint16 ViewFactorPercent = 0; ///< 100 once a picture stands on the whole screen, fitted to it or not
    bool UseSelectedBitmap = false; ///< the next capture window takes SelectedBitmap

    // Variables that mirror a settings key, with the key's name.
    bool FadeOuts = false;
    bool VidWinOnly = false;
    bool SpecialFolder = false;
    bool AutoSave = false;
    QString OldFolder;
    bool AutoDir = false;
    bool AutoCapture = false;
    bool CaptureTime = false;
    qint16 UsersCaptureTime = 0; ///< seconds
    bool AutoFrame = false;
    qint16 AutoNumber = 0; ///< frames
    bool SetFocusYES = false;
    bool NoCap = false;
    bool VidSave = false;
    bool NoWin = false;
    bool LoadVid = false;
    bool HighQ = false;
    bool BW = false;
    qint16 PPosition = 0;
    bool NameFull = false;
    qint16 OpThumb = ThumbnailOnly; ///< a CapturePlace
    qint16 OpPic = 0; ///< 0 tiled, 1 lower right corner, 2 none
    bool OpenVidList = false; ///< true keeps the list closed
    QString OldDir;
    QString OldFolder2;
    bool ToolTip = false; ///< also ShowTips
    bool UseWatermark = false;
    bool WatermarkBATCH = false;

private:
    std::vector<KeyText> Copies(std::span<const Key> keys) const;

    ProgramFolders folders_;
    std::map<Key, QString> held_; ///< what the store refused
};
