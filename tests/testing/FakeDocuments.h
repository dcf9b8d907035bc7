#pragma once

#include "desktop/Documents.h"

#include <QStringList>

/// A desktop that remembers what it was asked to open.
class FakeDocuments : public Documents {
public:
    QStringList opened;
    bool opens = true;

    bool Open(const QString& document) override
    {
        opened << document;
        return opens;
    }
};
