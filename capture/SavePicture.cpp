#include "capture/SavePicture.h"

#include "app/AsControl.h"
#include "imaging/PictureFile.h"

namespace {

/// Hands the bitmap's parts to write.
template <typename Write> bool Encoded(const QImage& picture, Write&& write)
{
    return AsControl([&] { return write(imaging::PictureFile::EncodeBitmap(picture).Parts()); });
}

} // namespace

void SavePicture(const QImage& picture, const QString& path)
{
    Encoded(picture, [&](WholeFile::Blocks blocks) {
        WholeFile::Replace(path, blocks);
        return true;
    });
}

bool SaveNewPicture(const QImage& picture, const QString& path)
{
    return Encoded(picture, [&](WholeFile::Blocks blocks) { return WholeFile::Create(path, blocks); });
}
