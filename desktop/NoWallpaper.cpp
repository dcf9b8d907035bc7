#include "desktop/NoWallpaper.h"

void NoWallpaper::Set(const QString&, Done done)
{
    done({ Result::NotHere, QStringLiteral("This desktop does not let a program set its wallpaper.") });
}
