#include "capture/ApplyWatermarkToFile.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "capture/FormatInForce.h"
#include "text/PrintUserText.h"

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
    const imaging::SaveValues values =
        FormatOf(path, state); // a run may have named it by another extension than "Ext"
    lead.Save(path, values.format, values.bits, values.quality, false);
}
