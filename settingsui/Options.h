#pragma once

#include "app/FormDialog.h"
#include "app/Talk.h"
#include "settingsui/OptionFields.h"

class AutoNamePage;
class Frame;
class PrintPage;
class QTabWidget;
class WatermarkPage;
class cSetDfltPrinter;

/// Shows and edits the settings on eight pages. Modal. What is not saved by its one button is dropped, except
/// by the controls that keep their value at once: groups of radio buttons but that of the background, the
/// switches for the folder and the shadow, and what is browsed for or chosen in the font dialog.
class Options : public FormDialog {
    Q_OBJECT

public:
    /// The printer's changer keeps what was chosen for as long as it lives.
    Options(Frame& frame, QWidget* owner, cSetDfltPrinter& defaultPrinter, AskColor askColor);

    /// However it is closed: what the store refused is told first.
    void done(int result) override;

private:
    void Build(cSetDfltPrinter& defaultPrinter, AskColor askColor);
    QWidget* BuildFoot();
    void AddPage(QWidget* page);
    void Fill();
    void ComeTo(int page);
    void Save();
    void TellWhatIsNotStored();
    void SwapCaptureCommands();

    Frame& frame_;
    OptionFields fields_;
    QTabWidget* VideoSoftIndexTab1;
    AutoNamePage* autoName_ = nullptr;
    PrintPage* print_ = nullptr;
    WatermarkPage* watermark_ = nullptr;
    int shownPage_ = 0;
    bool isTold_ = false; ///< what the store refused
};
