#include "ControlsPage.h"

#include "toolkit/Button_XP.h"
#include "toolkit/ChildForm.h"
#include "toolkit/DigitLabel.h"
#include "toolkit/PopupMenu.h"
#include "toolkit/PositionSlider.h"
#include "toolkit/SizeGrip.h"
#include "toolkit/Strip.h"
#include "toolkit/StripButton.h"
#include "toolkit/Style.h"
#include "toolkit/TAQbutton.h"
#include "toolkit/TitleStrip.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMouseEvent>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace {

enum Column { Rest, Hover, Pressed, Disabled, Latched };
constexpr const char* ColumnNames[] { "rest", "hover", "pressed", "disabled", "latched" };

void PutPointerOn(QWidget* control)
{
    QMouseEvent move(QEvent::MouseMove, QPointF(4, 4), control->mapToGlobal(QPointF(4, 4)), Qt::NoButton,
        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(control, &move);
}

void GiveState(StripControl* control, Column column)
{
    if (column == Hover) {
        PutPointerOn(control);
        // No pointer is really there, and the control finds out.
        QObject::connect(control, &StripControl::Leave, control, [control] { PutPointerOn(control); });
    }
    control->setDown(column == Pressed);
    control->setEnabled(column != Disabled);
}

class Card : public QWidget {
public:
    Card(const QString& title, Token ground)
        : rows(new QVBoxLayout)
        , ground_(ground)
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(new QLabel(title, this));
        column->addLayout(rows);
        column->addStretch();
    }
    QVBoxLayout* rows;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), StyleColor(ground_)); }

private:
    Token ground_;
};

Card* FacesCard()
{
    auto* card =
        new Card(QStringLiteral("Strip buttons: rest, hover, pressed, disabled, latched"), Token::Strip);
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    card->rows->addLayout(grid);
    constexpr int PerColumn = 13;
    int place = 0;
    for (int face = static_cast<int>(Face::OpenVideos); face < static_cast<int>(Face::BoxGround);
         ++face, ++place) {
        for (int column = Rest; column <= Latched; ++column) {
            auto* button = new smallXPbuttons;
            button->SetFace(static_cast<Face>(face));
            button->SetToggle(true);
            button->SetValue(column == Latched ? 1 : 0);
            grid->addWidget(button, place % PerColumn, place / PerColumn * 6 + column);
            GiveState(button, static_cast<Column>(column));
        }
        grid->setColumnMinimumWidth(place / PerColumn * 6 + 5, 16);
    }
    return card;
}

void GiveState(Button_XP* button, Column column)
{
    if (column == Hover || column == Pressed)
        PutPointerOn(button);
    if (column == Pressed) {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(4, 4), button->mapToGlobal(QPointF(4, 4)),
            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &press);
    }
    button->setEnabled(column != Disabled);
    if (column == Latched) {
        QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
        QApplication::sendEvent(button, &focus);
    }
}

QIcon FaceIcon(Face face)
{
    QIcon icon;
    for (const int scale : { 1, 2 })
        icon.addPixmap(Strip::Cell(face, StyleColor(Token::Text), Strip::CellSize, scale));
    return icon;
}

/// A disc on black, which is the mask's colour.
QIcon Disc()
{
    QPixmap picture(48, 48);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    painter.setBrush(StyleColor(Token::Alarm));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(4, 4, 40, 40);
    return picture;
}

Button_XP* PushButton(int style, bool hasPicture)
{
    using P = ButtonProperties;
    auto* button = new Button_XP;
    button->SetCaption(QStringLiteral("Accept"));
    button->Set(&P::ButtonStyle, style);
    button->Set(&P::PictureWidth, Strip::CellSize);
    button->Set(&P::PictureHeight, Strip::CellSize);
    button->Set(&P::PicturePosition, PicturePosition::Left);
    if (hasPicture)
        button->Set(&P::Picture, FaceIcon(Face::Save));
    if (style == ButtonStyle::Shaped) {
        button->SetCaption(QStringLiteral("Go"));
        button->Set(&P::PictureWidth, 48);
        button->Set(&P::PictureHeight, 48);
        button->Set(&P::Picture, Disc());
    }
    return button;
}

/// The look of a push button in a state, which its timer would soon find to be over.
QLabel* Taken(Button_XP& button, Column column)
{
    button.resize(button.sizeHint());
    GiveState(&button, column);
    QPixmap look = button.grab();
    if (!button.mask().isEmpty()) {
        const QPixmap whole = std::exchange(look, QPixmap(look.size()));
        look.setDevicePixelRatio(whole.devicePixelRatio());
        look.fill(Qt::transparent);
        QPainter painter(&look);
        painter.setClipRegion(button.mask());
        painter.drawPixmap(0, 0, whole);
    }
    auto* label = new QLabel;
    label->setPixmap(look);
    return label;
}

Card* PushButtonsCard()
{
    auto* card = new Card(QStringLiteral("Push buttons, styles 0 to 4, then with a bevel and with a border: "
                                         "rest, hover, pressed, disabled, with the focus"),
        Token::Panel);
    auto* grid = new QGridLayout;
    card->rows->addLayout(grid);
    for (int column = Rest; column <= Latched; ++column) {
        for (int style = 0; style < 7; ++style) {
            const std::unique_ptr<Button_XP> button(
                PushButton(style < 5 ? style : int(ButtonStyle::Default), style % 2 == 0));
            button->Set(&ButtonProperties::BEVEL, style == 5);
            button->Set(&ButtonProperties::XPShowBorderAlways, style == 6);
            grid->addWidget(Taken(*button, Column(column)), column, style);
        }
    }
    return card;
}

struct CommandRow {
    Face face;
    const char* caption;
};
constexpr CommandRow Commands[] {
    { Face::OpenVideos, "Open videos" },
    { Face::Stretch, "Stretch" },
    { Face::FitToWindow, "Fit to Window" },
    { Face::NormalSize, "Default Size" },
    { Face::Download, "Download" },
    { Face::Cancel, "Cancel" },
    { Face::Print, "Print Frame" },
    { Face::Options, "Options" },
    { Face::Capture, "Capture" },
    { Face::Save, "Save Capture" },
};

Card* CommandsCard()
{
    auto* card = new Card(QStringLiteral("Command buttons"), Token::Strip);
    auto* grid = new QGridLayout;
    grid->setSpacing(4);
    card->rows->addLayout(grid);
    for (int column = Rest; column <= Latched; ++column) {
        grid->addWidget(new QLabel(QLatin1String(ColumnNames[column])), column, 0);
        int place = 1;
        for (const CommandRow& row : Commands) {
            auto* button = new TAQbutton;
            button->SetFace(row.face);
            button->SetCaption(QLatin1String(row.caption));
            button->SetState(column == Latched ? 1 : 0);
            grid->addWidget(button, column, place++);
            GiveState(button, static_cast<Column>(column));
        }
    }
    return card;
}

Card* TransportCard()
{
    auto* card = new Card(QStringLiteral("The transport"), Token::Strip);
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    card->rows->addLayout(row);
    constexpr Face Order[] { Face::SeekStart, Face::FrameBack, Face::Play, Face::Pause, Face::FrameForward,
        Face::SeekEnd, Face::None, Face::MarkStart, Face::MarkEnd, Face::None, Face::AutoRewind, Face::Loop,
        Face::SoundOn, Face::None };
    for (const Face face : Order) {
        if (face == Face::None) {
            row->addSpacing(12);
            continue;
        }
        auto* button = new VideoEditButtons;
        button->SetToggle(true);
        button->SetFace(face, face);
        button->SetValue(face == Face::SoundOn || face == Face::MarkStart ? 1 : 0);
        row->addWidget(button);
    }
    auto* slider = new PositionSlider;
    slider->SetMax(10000);
    slider->SetValue(4200);
    slider->SetSelStart(2500);
    slider->SetSelLength(5000);
    row->addWidget(slider);
    auto* time = new DigitLabel;
    time->setText(QStringLiteral("00:01:17  -  00:10:48"));
    row->addWidget(time);
    auto* plain = new PositionSlider;
    plain->SetMax(100);
    plain->SetValue(0);
    auto* off = new PositionSlider;
    off->SetMax(100);
    off->SetValue(50);
    off->setEnabled(false);
    auto* second = new QHBoxLayout;
    second->addWidget(plain);
    second->addWidget(off);
    card->rows->addLayout(second);
    return card;
}

Card* ChecksCard()
{
    auto* card = new Card(QStringLiteral("Check boxes and radio buttons"), Token::Panel);
    auto* grid = new QGridLayout;
    card->rows->addLayout(grid);
    for (int column = Rest; column <= Disabled; ++column) {
        const QString name = QLatin1String(ColumnNames[column]);
        for (int value = 0; value <= 2; ++value) {
            auto* box = new xpcheckbox;
            box->SetCaption(name);
            box->SetValue(value);
            grid->addWidget(box, value, column);
            GiveState(box, static_cast<Column>(column));
        }
        for (int value = 0; value <= 1; ++value) {
            auto* radio = new xpradiobutton;
            radio->SetCaption(name);
            radio->SetValue(value);
            grid->addWidget(radio, 3 + value, column);
            GiveState(radio, static_cast<Column>(column));
        }
    }
    auto* lines = new xpcheckbox;
    lines->SetCaption(
        QStringLiteral("Don't open the video File Selector List at start up.\n( If more then one "
                       "video is selected )"));
    card->rows->addWidget(lines);
    return card;
}

QWidget* StandardPage()
{
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(new QLineEdit(QStringLiteral("A line of text")));
    auto* off = new QLineEdit(QStringLiteral("Disabled"));
    off->setEnabled(false);
    column->addWidget(off);
    auto* combo = new QComboBox;
    combo->addItems({ QStringLiteral("Medium rows"), QStringLiteral("Other") });
    column->addWidget(combo);
    auto* spin = new QSpinBox;
    spin->setMaximum(5000);
    spin->setValue(1500);
    column->addWidget(spin);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(new QPushButton(QStringLiteral("Accept")));
    auto* disabled = new QPushButton(QStringLiteral("Cancel"));
    disabled->setEnabled(false);
    buttons->addWidget(disabled);
    buttons->addWidget(new QCheckBox(QStringLiteral("Check")));
    buttons->addWidget(new QRadioButton(QStringLiteral("Radio")));
    column->addLayout(buttons);
    auto* bar = new QProgressBar;
    bar->setValue(40);
    column->addWidget(bar);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setValue(40);
    column->addWidget(slider);
    return page;
}

Card* StandardCard()
{
    auto* card = new Card(QStringLiteral("Standard controls"), Token::Panel);
    auto* tabs = new QTabWidget;
    tabs->addTab(StandardPage(), QStringLiteral("AutoName"));
    tabs->addTab(new QWidget, QStringLiteral(" Video"));
    tabs->addTab(new QWidget, QStringLiteral(" Window"));
    tabs->addTab(new QWidget, QStringLiteral("Display"));
    card->rows->addWidget(tabs);
    auto* box = new QGroupBox(QStringLiteral("Video list"));
    auto* inBox = new QVBoxLayout(box);
    auto* list = new QListWidget;
    list->setMaximumHeight(110);
    for (int i = 1; i < 12; ++i)
        list->addItem(
            QStringLiteral("/home/user/Videos/holidays on the coast and further along, part %1.avi").arg(i));
    list->setCurrentRow(1);
    inBox->addWidget(list);
    card->rows->addWidget(box);
    return card;
}

ChildForm* MakeForm(QMdiArea* area, const QString& title, QRect place)
{
    auto* form = new ChildForm;
    form->SetTitle(title);
    auto* menu = new smallXPbuttons;
    menu->SetFace(Face::Menu);
    form->Head().AddLeading(menu);
    for (const int value : { 4, 5, 6, 7, 8, 2, 1, 0 }) {
        auto* button = new smallXPbuttons;
        button->SetValue(value);
        form->Head().AddButton(button);
    }
    form->SetBody(new QWidget);
    area->addSubWindow(form);
    form->show();
    form->setGeometry(place);
    return form;
}

QMdiArea* FormsArea()
{
    auto* area = new QMdiArea;
    area->setBackground(StyleColor(Token::Ground));
    area->setMinimumHeight(300);
    area->setFrameShape(QFrame::NoFrame);
    MakeForm(area, QStringLiteral("Capture Window 12"), { 20, 16, 420, 150 });
    MakeForm(area, QStringLiteral("Thumbnails"), { 30, 40, 300, 60 })->ToggleMinimize();
    MakeForm(area, QStringLiteral("A title far too long for the strip it stands in"), { 200, 90, 320, 160 })
        ->BringToFront();
    auto* menu = new PopupMenu(area);
    menu->SetItems({ QStringLiteral("  Normal Video Size"), QStringLiteral("  Three Quarter"),
        QStringLiteral("  Half Size"), QStringLiteral("  Double Size"),
        QStringLiteral("  Close Captioning") });
    menu->SetChecked(1, true);
    menu->SetItemEnabled(3, false);
    menu->setActiveAction(menu->actions().at(2));
    menu->setWindowFlags(Qt::Widget);
    menu->move(560, 20);
    menu->show();
    return area;
}

class Page : public QWidget {
public:
    Page()
    {
        auto* grid = new QGridLayout(this);
        grid->addWidget(CommandsCard(), 0, 0, 1, 2);
        grid->addWidget(TransportCard(), 1, 0, 1, 2);
        grid->addWidget(FacesCard(), 2, 0, 2, 1);
        grid->addWidget(ChecksCard(), 2, 1);
        grid->addWidget(StandardCard(), 3, 1);
        grid->addWidget(PushButtonsCard(), 4, 0, 1, 2);
        grid->addWidget(FormsArea(), 5, 0, 1, 2);
    }
};

} // namespace

std::unique_ptr<QWidget> ControlsPage()
{
    return std::make_unique<Page>();
}
