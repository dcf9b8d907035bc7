#include "imaging/FormatTable.h"

#include <QLatin1StringView>

namespace imaging {

int FormatIndex(QStringView name)
{
    for (size_t i = 0; i < FormatTable.size(); ++i)
        if (name.endsWith(QLatin1StringView(FormatTable[i].extension + 1), Qt::CaseInsensitive))
            return int(i);
    return -1;
}

void WhatTypeFiles(int index, int& format, int& quality, int& bits)
{
    if (index < 0 || index >= int(FormatTable.size()))
        return;
    const FormatRow& row = FormatTable[size_t(index)];
    format = row.format;
    quality = row.quality;
    bits = row.bits;
}

} // namespace imaging
