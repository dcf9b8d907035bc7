#include "capture/SavePicture.h"

#include "app/ControlError.h"
#include "desktop/WholeFile.h"
#include "imaging/PictureError.h"
#include "imaging/PictureFile.h"

namespace {

/// Hands the bitmap's parts to write; the lower floors' failures become the control's.
template <typename Write> bool Encoded(const QImage& picture, Write&& write)
{
    try {
        return write(imaging::PictureFile::EncodeBitmap(picture).Parts());
    } catch (const imaging::PictureError& error) {
        throw ControlError(error.Reason());
    } catch (const FileError& error) {
        throw ControlError(error.Reason());
    }
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
