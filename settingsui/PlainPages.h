#pragma once

#include "settingsui/OptionsPage.h"

/// What happens with videos.
class VideoPage : public OptionsPage {
    Q_OBJECT

public:
    explicit VideoPage(OptionFields& fields);
};

/// Which windows open and close with captures.
class WindowPage : public OptionsPage {
    Q_OBJECT

public:
    explicit WindowPage(OptionFields& fields);
};

/// The picture format of captures.
class FormatPage : public OptionsPage {
    Q_OBJECT

public:
    explicit FormatPage(OptionFields& fields);
};
