#pragma once

#include "settingsui/OptionsPage.h"

class AAPrintPicture;
class Frame;
class QComboBox;
class QImage;
class QLabel;
class QListWidget;
class cSetDfltPrinter;

/// How captures are printed, and by which printer.
class PrintPage : public OptionsPage {
    Q_OBJECT

public:
    /// The printer's changer keeps what was chosen for as long as it lives.
    PrintPage(Frame& frame, OptionFields& fields, cSetDfltPrinter& defaultPrinter);

    /// Draws the page with the picture where it will stand.
    void ShowPreview();
    /// Lists the printers.
    void ShowPrinters();

private:
    void BuildAlignment(QBoxLayout& layout);
    void BuildPrinters(QBoxLayout& layout);
    QImage SamplePicture() const;
    void TakeAlignment();
    void SetDefaultPrinter();
    void ShowDefault();

    Frame& frame_;
    cSetDfltPrinter& defaultPrinter_;
    AAPrintPicture* AAPrintPicture1;
    QComboBox* cmbAlign = nullptr;
    Button_XP* Co = nullptr;
    QLabel* picPreview = nullptr;
    QListWidget* List1 = nullptr;
    QLabel* Label9 = nullptr;
    QLabel* whyNone_ = nullptr;
};
