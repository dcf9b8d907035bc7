#pragma once

#include <QString>

/// Opens documents and addresses with the program that the desktop has for them.
class Documents {
public:
    virtual ~Documents() = default;
    /// A full path or an address; false when there is nothing that opens it.
    virtual bool Open(const QString& document) = 0;
};
