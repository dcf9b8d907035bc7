// shadow_gallery PREFIX: shows shadows and fades of windows and of forms inside an area, for the eye, and
// writes what the screen shows: PREFIX-shadows.png, and PREFIX-fade.png in the middle of a fade.
#include "toolkit/ChildForm.h"
#include "toolkit/LayeredWindow.h"
#include "toolkit/Style.h"
#include "toolkit/ucShadow.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <cstdio>

namespace {

ucShadow* Dress(ChildForm& form, const QString& title, bool soft, int depth)
{
    form.SetTitle(title);
    form.setPalette(QApplication::palette());
    form.SetBody(new QLabel(QStringLiteral("  Depth %1").arg(depth)));
    auto* shadow = new ucShadow(&form);
    shadow->SetSoftShadow(soft);
    shadow->SetDepth(depth);
    return shadow;
}

/// Waits until no fade is seen that has this opacity or more.
bool WaitForFadesBelow(int alpha)
{
    return QTest::qWaitFor(
        [alpha] {
            const QWidgetList all = QApplication::allWidgets();
            return std::none_of(all.begin(), all.end(), [alpha](QWidget* widget) {
                const auto* const window = qobject_cast<LayeredWindow*>(widget);
                return window && window->isVisible()
                    && window->objectName().endsWith(QLatin1String("FadeCls"))
                    && window->ConstantAlpha() >= alpha;
            });
        },
        10'000);
}

/// Waits until the screen shows a window's own colour at a place of it: what is drawn comes there later.
bool WaitUntilSeen(QWidget& window, QPoint place)
{
    const QColor own = window.grab().toImage().pixelColor(place);
    const QPoint onScreen = window.pos() + place;
    return QTest::qWaitFor(
        [&] {
            const QPixmap seen = window.screen()->grabWindow(0, onScreen.x(), onScreen.y(), 1, 1);
            return seen.toImage().pixelColor(0, 0) == own;
        },
        10'000);
}

void Write(const QWidget& window, const QString& file)
{
    const QRect place = window.geometry();
    window.screen()->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage().save(file);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: shadow_gallery PREFIX\n");
        return 2;
    }
    ApplyStyle(application);
    const QString prefix = QString::fromLocal8Bit(argv[1]);
    const Compositing means = SystemCompositing();
    std::printf("windows: %d, children: %d\n", means.windows, means.children);

    QWidget page(nullptr, Qt::FramelessWindowHint);
    page.setGeometry(20, 20, 860, 520);
    page.setPalette(QColor(QStringLiteral("#e0e0e0")));
    page.setAutoFillBackground(true);
    auto* area = new QMdiArea(&page);
    area->setGeometry(430, 10, 420, 500);
    area->setBackground(QColor(QStringLiteral("#8090a0")));
    const struct {
        const char* title;
        bool isSoft;
        int depth;
        QRect place;
    } rows[] { { "soft", true, 10, { 30, 30, 200, 120 } }, { "hard", false, 10, { 150, 110, 200, 120 } },
        { "deep", true, 30, { 40, 260, 200, 120 } }, { "over", true, 10, { 180, 320, 180, 120 } } };
    page.show();
    if (!WaitUntilSeen(page, QPoint(5, 5)))
        return 1;
    for (const auto& row : rows) {
        auto* child = new ChildForm;
        Dress(*child, QLatin1String(row.title), row.isSoft, row.depth);
        area->addSubWindow(child, child->windowFlags());
        child->setGeometry(row.place);
        child->show();
    }
    std::vector<std::unique_ptr<ChildForm>> windows;
    for (const auto& row : rows) {
        auto window = std::make_unique<ChildForm>();
        Dress(*window, QLatin1String(row.title), row.isSoft, row.depth);
        window->setGeometry(row.place.translated(30, 30));
        window->show();
        windows.push_back(std::move(window));
    }
    if (!WaitForFadesBelow(0) || !WaitUntilSeen(*windows.back(), QPoint(100, 100)))
        return 1;
    Write(page, prefix + QStringLiteral("-shadows.png"));
    auto* shadow = windows.back()->findChild<ucShadow*>(QString(), Qt::FindDirectChildrenOnly);
    auto* childs = area->activeSubWindow()->findChild<ucShadow*>(QString(), Qt::FindDirectChildrenOnly);
    shadow->FadeOut(1200, false);
    childs->FadeOut(1200, false);
    if (!WaitForFadesBelow(128))
        return 1;
    Write(page, prefix + QStringLiteral("-fade.png"));
    return 0;
}
