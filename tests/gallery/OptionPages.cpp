#include "OptionPages.h"

#include "print/cSetDfltPrinter.h"
#include "settingsui/Options.h"
#include "settingsui/Power.h"
#include "tests/testing/FakeFrame.h"

#include <QTabWidget>

namespace {

void Store(FakeFrame& frame, const char* key, const char* text)
{
    frame.state.Settings.SaveSetting(
        frame.state.SettingsSection, QString::fromLatin1(key), QString::fromLatin1(text));
}

void ShowPages(
    const std::function<void(const QString&, QWidget&)>& take, FakeFrame& frame, const QString& prefix)
{
    cSetDfltPrinter printer(frame.printers);
    Options options(frame, nullptr, printer, {});
    auto* pages = options.findChild<QTabWidget*>();
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        take(prefix + pages->tabText(page).simplified().replace(u' ', u'-').toLower(), options);
    }
}

} // namespace

void ShowOptions(const std::function<void(const QString& name, QWidget& window)>& take)
{
    FakeFrame frame;
    ShowPages(take, frame, QStringLiteral("options-"));
    Power panel(frame);
    panel.setAttribute(Qt::WA_DeleteOnClose, false);
    take(QStringLiteral("control-panel"), panel);

    for (const char* key : { "AutoSave", "SpecialFolder", "SFontItalic", "SFontBold" })
        Store(frame, key, "True");
    Store(
        frame, "OldFolder", "/home/user/Pictures/Holidays on the coast and further along the old road, 2003");
    Store(frame, "sFontColor", "3174640");
    Store(frame, "SFontName", "DejaVu Serif");
    Store(frame, "SFontSize", "18");
    Store(frame, "sFontText", "The last evening of the summer,\nphotographed from the pier");
    frame.state.UseShadows = true;
    frame.printers.RemoveAll();
    ShowPages(take, frame, QStringLiteral("options-set-"));
}
