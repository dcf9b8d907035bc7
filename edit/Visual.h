#pragma once

#include "edit/EffectRows.h"
#include "toolkit/ChildForm.h"

#include <QImage>
#include <QTimer>

#include <array>
#include <functional>

class ElidedLabel;
class Frame;
class Lead;
class OptionGroup;
class PicturePane;
class QAbstractButton;
class QCheckBox;
class QGridLayout;
class QLayout;
class QProgressBar;
class QSlider;
class SliderRow;
class StripButton;
struct EdgeFilterRow;

/// The visual editor: a desk of its own for one picture, copied from the active capture or from a file. It
/// never writes back; what is accepted becomes a new capture.
class Visual : public ChildForm {
    Q_OBJECT

public:
    /// Takes the active capture's picture and shows itself. Where there is none it says so, and VisualReady
    /// stays false: the caller deletes it then.
    explicit Visual(Frame& frame);

    /// Comes up again, from whatever shape it has.
    void ComeBack();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct EditorButton;
    struct PlainOperation;
    struct Turn;
    static const EditorButton HistoryCommands[];
    static const EditorButton ClipboardCommands[];
    static const EditorButton FootCommands[];
    static const PlainOperation PlainOperations[];
    static const Turn Turns[];
    enum class Back { Kept, LeftAsItIs };

    // VisualBuild.cpp: what stands where
    void Build();
    QWidget* BuildLeft();
    QWidget* BuildHistory();
    QWidget* BuildClipboard();
    QWidget* BuildFilters();
    QWidget* BuildRight();
    QWidget* BuildRows(EffectGroup group, const QString& heading);
    QWidget* BuildPlainOperations();
    QWidget* BuildRotation();
    QLayout* BuildAngle();
    QLayout* BuildTurns();
    QWidget* BuildFoot();
    QAbstractButton* MakeButton(const EditorButton& command, QWidget* parent);
    Lead* AddPreview(QGridLayout& grid, PicturePane*& pane, const char* name, const char* title);

    // Visual.cpp: the session
    void Load();
    void ShowFolder();
    bool TakeOriginal();
    void LoadClipboard();
    void RefreshClipboardState();
    void EnableClipboard(bool hasPicture);
    void BeginBusy();
    void EndBusy();
    void ShowProgress(int part);
    void ShowWaiting();
    void EffectMe();
    void ShowEffect(const QImage& picture);
    void SetUndos(const QImage& picture);
    void EndClipboardView();

    // VisualCommands.cpp: what the buttons do
    /// Changes Effect and shows what became of it, whether or not that went well. False when the editor was
    /// closed meanwhile, and for a change that is asked for in the middle of another.
    bool Change(Back back, const std::function<void(Lead&)>& operation);
    void ApplyRow(int index);
    void ApplyEdgeFilter(const EdgeFilterRow& row);
    void TurnByAngle();
    void GoBack();
    void UndoTo();
    void SetBookmark();
    void BookmarkOriginal();
    void ViewClipboard();
    void CopyEffect();
    void PasteUnder();
    void OpenDifferent();
    /// False when the editor was closed meanwhile.
    bool LoadOriginal();
    void SelectGraphicFile();
    void ChangeResolution();
    void ViewFullScreen();
    void LoadSliders();
    void SaveSliders();
    void Accept();
    void Cancel() { close(); }
    void GetFilt();

    Frame& frame_;
    Lead* Effect = nullptr; ///< the picture being worked on
    QImage Back1; ///< the one before the last operation
    Lead* Undos = nullptr; ///< the bookmark of "Undo To"
    Lead* Original = nullptr; ///< as it came in
    Lead* Lead1 = nullptr; ///< from the clipboard
    PicturePane* effectPane_ = nullptr;
    PicturePane* undosPane_ = nullptr;
    PicturePane* originalPane_ = nullptr;
    PicturePane* clipPane_ = nullptr;
    std::array<SliderRow*, EffectRowCount> rows_ {};
    QSlider* Angle = nullptr;
    QCheckBox* Check1 = nullptr;
    OptionGroup* Option1 = nullptr;
    OptionGroup* Option2 = nullptr;
    OptionGroup* Option3 = nullptr;
    QAbstractButton* Command3 = nullptr;
    QAbstractButton* ViewClip_Button = nullptr;
    QProgressBar* StatGauge = nullptr;
    ElidedLabel* LblFolder = nullptr;
    QTimer ClipTimer { this }; ///< runs while the clipboard's picture is on show
    QString file_; ///< last chosen to be edited instead
    int FilterType = 0;
    int FilterDirection = 0;
    bool isChanging_ = false;
    bool isClosed_ = false;
};
