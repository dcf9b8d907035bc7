#pragma once

#include "app/SettingsKeys.h"

#include <QWidget>

#include <span>
#include <vector>

class Button_XP;
class NumberLine;
class OptionFields;
class QBoxLayout;
class QGridLayout;
class QLineEdit;
class QVBoxLayout;
class xpcheckbox;
class xpradiobutton;

/// A check box, or a radio button that is on or off by itself, that edits one key.
struct BoxRow {
    Key key;
    const char* name;
    const char* caption;
    const char* tip;
};

/// A radio button of a group, and the text of the store that it stands for.
struct ChoiceRow {
    const char* name;
    const char* caption;
    const char* text;
    const char* tip;
};

/// One of a pair of boxes.
struct PairRow {
    const char* name;
    const char* caption;
    const char* tip;
    const char* spoken =
        nullptr; ///< its name for those who cannot see it, where the caption alone says little
};

/// A number in a box with a slider, and the words around the box.
struct NumberRow {
    Key key;
    const char* box;
    const char* slider;
    const char* before;
    const char* after;
    const char* spoken; ///< for those who cannot see it
    const char* tip;
    int min;
    int max;
};

/// One page of the options: a column of controls made from the rows of its tables.
class OptionsPage : public QWidget {
    Q_OBJECT

public:
    /// Tells the fields which controls edit which keys; they outlive the page.
    explicit OptionsPage(OptionFields& fields);

protected:
    /// When a choice among radio buttons is kept: at once, or by the save only.
    enum class Kept { AtOnce, BySave };

    /// The controls by their keys.
    OptionFields& Fields() { return fields_; }
    /// The page from top to bottom.
    QVBoxLayout& Column() { return *column_; }
    /// A column within a line and below a heading.
    QVBoxLayout& AddGroup(QBoxLayout& layout, const char* heading);
    /// A row of controls from left to right.
    static QBoxLayout& AddRow(QBoxLayout& layout);

    /// A check box.
    xpcheckbox* AddBox(QBoxLayout& layout, const BoxRow& row);
    /// Check boxes at the end of the column.
    void AddBoxes(std::span<const BoxRow> rows);
    /// A radio button that is on or off by itself.
    void AddFlag(QBoxLayout& layout, const BoxRow& row);
    /// A group of radio buttons for one key.
    std::vector<xpradiobutton*> AddChoices(
        QBoxLayout& layout, Key key, Kept kept, std::span<const ChoiceRow> rows);
    /// The first row stands for "True".
    void AddPair(QBoxLayout& layout, Key key, const PairRow (&rows)[2]);
    /// A line of a grid: word, box, word, slider.
    NumberLine* AddNumber(QGridLayout& grid, int line, const NumberRow& row);
    /// A push button.
    Button_XP* AddCommand(QBoxLayout& layout, const char* name, const char* caption, const char* tip);
    /// Names a control without a caption: for the program, for those who cannot see it and for those who
    /// wonder.
    static void Name(QWidget& control, const char* name, const char* spoken, const char* tip);

private:
    /// A control with a caption, at the end of a layout.
    template <typename Control>
    Control* MakeControl(QBoxLayout& layout, const char* name, const char* caption, const char* tip);

    OptionFields& fields_;
    QVBoxLayout* column_;
};
