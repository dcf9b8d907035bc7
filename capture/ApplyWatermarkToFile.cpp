#include "capture/ApplyWatermarkToFile.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "capture/FormatInForce.h"
#include "text/PrintUserText.h"

namespace {

/// A run that names its files by itself may have another extension than "Ext".
const imaging::FormatRow& FormatOf(const QString& path, ApplicationState& state)
{
    const int index = imaging::FormatIndex(path);
    return index >= 0 ? imaging::FormatTable.at(size_t(index)) : FormatInForce(state);
}

} // namespace

void ApplyWatermarkToFile(Frame& frame)
{
    ApplicationState& state = frame.State();
    if (!state.UseWatermark)
        return;
    const QString path = state.CurrentFile;
    Lead lead;
    lead.Load(path, 0, 0, 1);
    frame.SetStatus(StatusLabel::Watermark, QStringLiteral("Watermark Applied"));
    frame.ShowStatus(StatusLabel::Watermark, true);
    PrintUserText(lead, state);
    const imaging::FormatRow& row = FormatOf(path, state);
    lead.Save(path, row.format, row.bits, row.quality, false);
}
