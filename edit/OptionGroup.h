#pragma once

#include <QButtonGroup>

#include <span>

class QBoxLayout;

/// A button of a group, and the number that stands for it.
struct Option {
    int index;
    const char* caption;
};

/// Option buttons of which one is chosen; each is called name(index).
class OptionGroup : public QButtonGroup {
    Q_OBJECT

public:
    /// Adds the buttons to a layout of parent, the first of them chosen.
    OptionGroup(const QString& name, std::span<const Option> options, QBoxLayout& layout, QWidget* parent);

    /// The index of the one chosen.
    int Chosen() const { return checkedId(); }
    /// An index that there is not changes nothing.
    void Choose(int index);
    void SetEnabled(bool enabled);
};
