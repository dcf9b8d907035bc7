// editing: how long after a press the visual editor shows what an operation makes of a picture of 12
// megapixels.
#include "app/CaptureWindow.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "bench/LiveProgram.h"
#include "bench/Painted.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <span>
#include <stdexcept>

namespace {

constexpr QSize Megapixels12 { 4000, 3000 };
constexpr int Rounds = 3;

/// Soft light, edges and noise.
QImage Photo()
{
    QImage photo(Megapixels12, QImage::Format_BGR888);
    QPainter painter(&photo);
    QLinearGradient light(0, 0, photo.width(), photo.height());
    light.setColorAt(0, Qt::darkBlue);
    light.setColorAt(1, Qt::yellow);
    painter.fillRect(photo.rect(), light);
    for (int i = 0; i < 4000; ++i)
        painter.fillRect(
            i * 37 % photo.width(), i * 91 % photo.height(), 60, 40, QColor::fromHsv(i % 360, 200, i % 256));
    return photo;
}

/// One press, and the amount that is typed before it; none takes the amount that stands there.
struct Press {
    const char* name;
    const char* button;
    const char* answer = nullptr;
    const char* amount = nullptr;
};
constexpr Press PointOperations[] { { "invert", "Command4" }, { "reverse", "Command6" },
    { "grayscale", "Command2" }, { "stretch", "Command1" }, { "contrast", "ImageBut(0)", "Answer(0)", "300" },
    { "brightness", "ImageBut(1)", "Answer(1)", "200" }, { "hue", "ImageBut(2)", "Answer(2)", "60" },
    { "saturation", "ImageBut(3)", "Answer(3)", "300" }, { "gamma", "ImageBut(4)", "Answer(4)", "150" },
    { "posterize", "EffectBut(3)" }, { "solarize", "EffectBut(5)" } };
constexpr Press Filters[] { { "sharpen", "ImageBut(5)" }, { "oil", "EffectBut(0)" },
    { "emboss", "EffectBut(1)" }, { "mosaic", "EffectBut(2)" }, { "median", "EffectBut(4)" } };

template <typename Widget = QWidget> Widget& Find(QWidget& editor, const char* name)
{
    auto* control = editor.findChild<Widget*>(QLatin1String(name));
    if (!control)
        throw std::runtime_error("a control of the editor is missing");
    return *control;
}

/// Milliseconds from the press to the end of its painting; the least of some rounds.
double PressedToPainted(QWidget& editor, const Press& press)
{
    double least = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        if (press.answer)
            Find<QLineEdit>(editor, press.answer).setText(QLatin1String(press.amount));
        const double begin = Painted::Now();
        QTest::mouseClick(&Find(editor, press.button), Qt::LeftButton);
        least = std::min(least, (Painted::Now() - begin) * 1e3);
        QTest::mouseClick(&Find(editor, "Command18"), Qt::LeftButton); // back
        QCoreApplication::processEvents();
    }
    return least;
}

void Report(QWidget& editor, const char* kind, std::span<const Press> presses, double goal)
{
    for (const Press& press : presses) {
        const double time = PressedToPainted(editor, press);
        std::printf(
            "| %s | %s | %.0f | %.0f |%s\n", kind, press.name, time, goal, time > goal ? " over" : "");
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    LiveProgram program;
    Frame& frame = program.TheFrame();
    frame.OpenViewer();
    frame.ActiveCaptureWindow()->ShowPicture(Photo());
    frame.OpenVisual();
    QWidget* editor = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == QStringLiteral("Visual"))
            editor = window;
    if (!editor || !QTest::qWaitForWindowExposed(editor))
        throw std::runtime_error("the editor does not open");

    std::printf("\n| kind | operation | ms from the press to its painting | goal |\n|---|---|---|---|\n");
    Report(*editor, "point", PointOperations, 150);
    Report(*editor, "filter", Filters, 1000);
    return 0;
}
