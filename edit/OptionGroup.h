#pragma once

#include <QButtonGroup>

#include <span>

/// A button of a group, and the number that stands for it.
struct Option {
    int index;
    const char* caption;
};

/// Option buttons of which one is chosen; each is called name(index).
class OptionGroup : public QButtonGroup {
    Q_OBJECT

public:
    /// Makes the buttons, the first of them chosen; parent places them.
    OptionGroup(const QString& name, std::span<const Option> options, QWidget* parent);

    /// The index of the one chosen.
    int Chosen() const { return checkedId(); }
    /// An index that there is not changes nothing.
    void Choose(int index);
    void SetEnabled(bool enabled);
};
