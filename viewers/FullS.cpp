#include "viewers/FullS.h"

#include "app/ApplicationState.h"
#include "app/ControlError.h"
#include "app/Frame.h"
#include "app/Lead.h"
#include "app/OpenUserPicture.h"
#include "viewers/FullPlace.h"

#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int Margin = 12; // of the label, from the corner of the screen
constexpr int NaturalSize = 100; // percent
constexpr int EndingKeys[] { Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F,
    Qt::Key_F11 };

QRectF Divided(const QRect& pixels, qreal ratio)
{
    return { QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio };
}

} // namespace

FullS::FullS(Frame& frame, const QImage& picture)
    : QDialog(frame.FrameWindow(), Qt::Dialog | Qt::FramelessWindowHint)
    , frame_(frame)
    , picture_(picture)
{
    setObjectName(QStringLiteral("FullS"));
    setWindowTitle(QStringLiteral("Full Screen"));
    Build();
    if (imaging::IsAnimated(picture))
        LoadPages();
    QScreen* const screen = frame.FrameWindow()->screen();
    setScreen(screen);
    setGeometry(screen->geometry());
    setWindowState(Qt::WindowFullScreen);
}

void FullS::Build()
{
    Leadbitmap1 = new Lead(this);
    Leadbitmap1->setObjectName(QStringLiteral("Leadbitmap1"));
    Leadbitmap1->setAccessibleName(QStringLiteral("Picture on the full screen"));
    Leadbitmap1->SetAutoScroll(false);
    Leadbitmap1->KeepShrunk();
    Leadbitmap1->hide();
    connect(Leadbitmap1, &Lead::MouseDown, this, [this] { isPressed_ = true; });
    connect(Leadbitmap1, &Lead::MouseUp, this, &FullS::EndClick);
    ViewFactor = new QLabel(this);
    ViewFactor->setObjectName(QStringLiteral("ViewFactor"));
    ViewFactor->setAccessibleDescription(QStringLiteral("Size at which the picture is shown"));
    ViewFactor->hide();
}

/// The file may hold something else by now, or be gone: then the picture stands still.
void FullS::LoadPages()
{
    IgnoreErrors(
        [&] { pages_ = OpenUserPages(frame_.State().CurrentFile, [this] { frame_.PumpPaintEvents(); }); });
    const auto& pages = pages_.decoded;
    if (pages.size() < 2 || pages.front().picture != picture_.convertToFormat(QImage::Format_ARGB32))
        pages_ = {};
    pageTimer_.setObjectName(QStringLiteral("PageTimer"));
    pageTimer_.setSingleShot(true);
    pageTimer_.setTimerType(Qt::PreciseTimer);
    connect(&pageTimer_, &QTimer::timeout, this, &FullS::ShowNextPage);
}

void FullS::ShowNextPage()
{
    page_ = (page_ + 1) % pages_.decoded.size();
    const imaging::Page& page = pages_.decoded[page_];
    Leadbitmap1->SetBitmap(page.picture);
    Arrange();
    pageTimer_.start(page.time);
}

void FullS::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    ShowPicture();
}

void FullS::ShowPicture()
{
    Leadbitmap1->SetBitmap(picture_);
    if (picture_.isNull())
        return;
    frame_.State().ViewFactorPercent = NaturalSize;
    Arrange();
    ViewFactor->show();
    Leadbitmap1->show();
    Leadbitmap1->lower(); // the label stands on the picture
    Leadbitmap1->ForceRepaint();
    if (!pages_.decoded.empty())
        pageTimer_.start(pages_.decoded.front().time);
}

/// The control takes the whole screen, for a place between two of the coordinates that a widget can have.
void FullS::Arrange()
{
    if (picture_.isNull())
        return;
    const qreal ratio = devicePixelRatioF();
    const QRect place = FullPlace(picture_.size(), (QSizeF(size()) * ratio).toSize());
    const QRectF shown = Divided(place, ratio);
    Leadbitmap1->setGeometry(rect());
    Leadbitmap1->SetDstRect(shown.x(), shown.y(), shown.width(), shown.height());
    const int percent = std::max(1, place.width() * NaturalSize / picture_.width());
    ViewFactor->setText(QStringLiteral("%1 %").arg(percent) + Beginning());
    ViewFactor->adjustSize();
    ViewFactor->move(rect().bottomRight() - ViewFactor->rect().bottomRight() - QPoint(Margin, Margin));
}

/// Says that not all of a moving picture is played; empty when all of it is.
QString FullS::Beginning() const
{
    const auto shown = int(pages_.decoded.size());
    return shown == 0 || shown == pages_.inFile
        ? QString()
        : QStringLiteral(", %1 of %2 pages").arg(shown).arg(pages_.inFile);
}

void FullS::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    Arrange();
}

void FullS::keyPressEvent(QKeyEvent* event)
{
    if (std::ranges::count(EndingKeys, event->key()) > 0)
        accept();
    else
        event->ignore();
}

/// On the label, or where nothing is shown.
void FullS::mousePressEvent(QMouseEvent*)
{
    isPressed_ = true;
}

void FullS::mouseReleaseEvent(QMouseEvent*)
{
    EndClick();
}

/// Only with the button up again: the second press of a double click would go to what stands below.
void FullS::EndClick()
{
    if (isPressed_)
        accept();
}
