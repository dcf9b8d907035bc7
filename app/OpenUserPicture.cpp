#include "app/OpenUserPicture.h"

#include "app/AsControl.h"
#include "desktop/WholeFile.h"
#include "imaging/ConfinedReader.h"
#include "imaging/PictureFile.h"

QImage OpenUserPicture(const QString& path, const std::function<void()>& whileWaiting)
{
    return AsControl([&] {
        return imaging::DecodeConfined(
            WholeFile::Read(path, imaging::PictureFile::MaxFileBytes), whileWaiting);
    });
}

imaging::Pages OpenUserPages(const QString& path, const std::function<void()>& whileWaiting)
{
    return AsControl([&] {
        return imaging::DecodePagesConfined(
            WholeFile::Read(path, imaging::PictureFile::MaxFileBytes), whileWaiting);
    });
}
