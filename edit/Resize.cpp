#include "edit/Resize.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "toolkit/Style.h"
#include "toolkit/xpcheckbox.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>

namespace {

constexpr int BoxColumns = 7; // of a number's box, in average characters
constexpr int BarWidth = 260;
constexpr int LargeStep = 100;

struct SideRow {
    const char* boxName;
    const char* barName;
    const char* caption;
    const char* barTitle; ///< for those who cannot see it
};
constexpr SideRow SideRows[] = {
    { "Value1Box", "Value1Bar", "Width", "Width slider" },
    { "Value2Box", "Value2Bar", "Height", "Height slider" },
};

} // namespace

Resize::Resize(Frame& frame, QWidget* owner, QSize source)
    : FormDialog(frame.State(), owner, QStringLiteral("Resize"))
    , size_(source)
    , AspectRatioBox(new xpcheckbox(this))
    , ResampleBox(new xpcheckbox(this))
{
    SetTitle(QStringLiteral("Resize"));
    Build();
    Bind();
    Dress();
    InitTheForm();
}

void Resize::Build()
{
    AddCloseButton();
    AspectRatioBox->setObjectName(QStringLiteral("AspectRatioBox"));
    AspectRatioBox->SetCaption(QStringLiteral("Maintain Aspect-Ratio"));
    ResampleBox->setObjectName(QStringLiteral("ResampleBox"));
    ResampleBox->SetCaption(QStringLiteral("Resample"));
    ResampleBox->setProperty("Tag", QStringLiteral("Smooth the picture instead of picking single pixels."));

    auto* body = new QWidget(this);
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(4 * Grid, 4 * Grid, 4 * Grid, 4 * Grid);
    column->setSpacing(4 * Grid);
    column->addWidget(BuildSides());
    auto* checks = new QHBoxLayout;
    checks->setSpacing(6 * Grid);
    checks->addWidget(AspectRatioBox);
    checks->addWidget(ResampleBox);
    checks->addStretch();
    column->addLayout(checks);
    column->addWidget(MakeFoot("Ok", "cancel"));
    AddBody(body);
    KeepFitting();
}

QWidget* Resize::BuildSides()
{
    auto* sides = new QWidget(this);
    auto* grid = new QGridLayout(sides);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(3 * Grid);
    grid->setVerticalSpacing(2 * Grid);
    for (const NewSize::Side side : NewSize::Sides) {
        const SideRow& row = SideRows[side];
        auto* box = new QLineEdit(sides);
        box->setObjectName(QLatin1String(row.boxName));
        box->setAccessibleName(QLatin1String(row.caption));
        box->setFixedWidth(fontMetrics().averageCharWidth() * BoxColumns + 4 * Grid);
        auto* bar = new QSlider(Qt::Horizontal, sides);
        bar->setObjectName(QLatin1String(row.barName));
        bar->setAccessibleName(QLatin1String(row.barTitle));
        bar->setPageStep(LargeStep);
        bar->setMinimumWidth(BarWidth);
        grid->addWidget(new QLabel(QLatin1String(row.caption), sides), side, 0);
        grid->addWidget(box, side, 1);
        grid->addWidget(bar, side, 2);
        sides_[side] = { box, bar };
    }
    return sides;
}

void Resize::Bind()
{
    for (const NewSize::Side side : NewSize::Sides) {
        connect(sides_[side].bar, &QSlider::valueChanged, this, [this, side](int value) {
            size_.MoveBar(side, value);
            ShowSize();
        });
        connect(sides_[side].box, &QLineEdit::textChanged, this, [this, side](const QString& text) {
            size_.Type(side, text);
            ShowSize();
        });
    }
    connect(AspectRatioBox, &xpcheckbox::Click, this, [this] {
        size_.SetKeepsAspect(
            AspectRatioBox->Value() != xpcheckbox::Set); // the box turns over after its click
        size_.Recouple();
        ShowSize();
    });
    connect(ResampleBox, &xpcheckbox::Click, this, [this] {
        if (ResampleBox->Value() == xpcheckbox::Grey)
            ResampleBox->SetValue(xpcheckbox::Set);
    });
}

void Resize::InitTheForm()
{
    ShowSize();
    ResampleBox->SetValue(xpcheckbox::Clear);
    AspectRatioBox->SetValue(xpcheckbox::Set);
    for (const SideControls& side : sides_)
        side.box->selectAll();
    sides_[NewSize::Width].box->setFocus();
}

void Resize::ShowSize()
{
    for (const NewSize::Side side : NewSize::Sides) {
        const auto& [box, bar] = sides_[side];
        const QSignalBlocker boxSilence(box);
        const QSignalBlocker barSilence(bar);
        const NewSize::Bar& held = size_.BarOf(side);
        bar->setRange(held.minimum, held.maximum);
        bar->setValue(held.value);
        if (box->text() != size_.BoxOf(side)) // setting it would move the cursor of whoever types
            box->setText(size_.BoxOf(side));
    }
}

Resize::Results Resize::GetResults() const
{
    return { result() == Accepted, size_.BarOf(NewSize::Width).value, size_.BarOf(NewSize::Height).value,
        ResampleBox->Value() == xpcheckbox::Set };
}

void Resize::accept()
{
    if (size_.HoldBoxes())
        QApplication::beep();
    ShowSize();
    if (size_.IsAcceptable())
        FormDialog::accept();
}
