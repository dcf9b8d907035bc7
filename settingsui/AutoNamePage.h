#pragma once

#include "settingsui/OptionsPage.h"

class Frame;

/// Names and folders of captures.
class AutoNamePage : public OptionsPage {
    Q_OBJECT

public:
    AutoNamePage(Frame& frame, OptionFields& fields);

    /// Saving without a capture window makes names by itself, so it can be switched with those only.
    void EnableImmediateSave();

private:
    void BuildNames();
    void BuildFolders();
    QString AutoSaveFolder() const;
    void EnableFolder(bool isChosen);
    void SwitchFolder();
    void Browse();

    Frame& frame_;
    xpcheckbox* Check1 = nullptr;
    xpcheckbox* check3 = nullptr;
    xpcheckbox* check6 = nullptr;
    QLineEdit* LblFolder = nullptr;
    Button_XP* browse_ = nullptr; ///< Cmds(1)
    std::vector<xpradiobutton*> folders_; ///< Option1, Option2
};
