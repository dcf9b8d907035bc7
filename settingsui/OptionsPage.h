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

/// A check box that edits one key.
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
    explicit OptionsPage(OptionFields& fields);

protected:
    /// When a choice among radio buttons is kept: at once, or by the save only.
    enum class Kept { AtOnce, BySave };

    OptionFields& Fields() { return fields_; }
    QVBoxLayout& Column() { return *column_; }
    /// A column within a line and below a heading.
    QVBoxLayout& AddGroup(QBoxLayout& layout, const char* heading);
    /// A row of controls from left to right.
    static QBoxLayout& AddRow(QBoxLayout& layout);

    xpcheckbox* AddBox(QBoxLayout& layout, const BoxRow& row);
    void AddBoxes(std::span<const BoxRow> rows);
    std::vector<xpradiobutton*> AddChoices(
        QBoxLayout& layout, Key key, Kept kept, std::span<const ChoiceRow> rows);
    /// The first row stands for "True".
    void AddPair(QBoxLayout& layout, Key key, const PairRow (&rows)[2]);
    /// A line of a grid: word, box, word, slider.
    NumberLine* AddNumber(QGridLayout& grid, int line, const NumberRow& row);
    /// A push button; it is called Cmds(index).
    Button_XP* AddCommand(QBoxLayout& layout, int index, const char* caption, const char* tip);
    /// Names a control for the program, for those who cannot see it and for those who wonder.
    static void Name(QWidget& control, const char* name, const char* spoken, const char* tip);

private:
    OptionFields& fields_;
    QVBoxLayout* column_;
};
