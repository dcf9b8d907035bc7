#include "capture/ApplyWatermarkToFile.h"

#include "app/ApplicationState.h"
#include "app/AsControl.h"
#include "capture/FormatInForce.h"
#include "imaging/PictureFile.h"
#include "text/PrintUserText.h"

using imaging::PictureFile::Decode;
using imaging::PictureFile::Encode;

std::optional<FileText> TextForFiles(ApplicationState& state, const QString& name)
{
    if (!state.UseWatermark)
        return std::nullopt;
    // A run that names its files by itself may have another extension than "Ext".
    return FileText { state, FormatOf(name, state) };
}

void ApplyWatermarkToFile(const QString& path, const FileText& text)
{
    AsControl([&] {
        const QImage plain = Decode(WholeFile::Read(path, imaging::PictureFile::MaxFileBytes));
        const auto [format, quality, bits] = text.format;
        WholeFile::Replace(path, Encode(WithUserText(plain, text.text), format, bits, quality).Parts());
    });
}
