#pragma once

#include "desktop/Documents.h"

/// Asks the desktop.
class SystemDocuments : public Documents {
public:
    bool Open(const QString& document) override;
};
