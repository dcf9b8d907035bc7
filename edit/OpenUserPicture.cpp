#include "edit/OpenUserPicture.h"

#include "app/Lead.h"

QImage OpenUserPicture(const QString& path)
{
    constexpr int ownDepth = 0;
    constexpr int firstPage = 0;
    constexpr int onePage = 1;
    Lead loader;
    loader.Load(path, ownDepth, firstPage, onePage);
    return loader.Bitmap();
}
