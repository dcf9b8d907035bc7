#pragma once

#include "settingsui/OptionsPage.h"

/// Automatic capture by time and by frames.
class TimedPage : public OptionsPage {
    Q_OBJECT

public:
    explicit TimedPage(OptionFields& fields);

private:
    QGridLayout& AddRate(const BoxRow& row);
};
