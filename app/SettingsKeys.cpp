#include "app/SettingsKeys.h"

#include "toolkit/PathText.h"

QString DefaultText(Key key, Reader reader, const QString& applicationFolder)
{
    const SettingsKey& row = Row(key);
    for (const OtherDefault& other : row.others)
        if (other.text && other.reader == reader)
            return QLatin1String(other.text);
    const QLatin1String text(row.text);
    return row.base == Base::ApplicationFolder ? applicationFolder + PathText::Separator() + text : text;
}
