#include "frame/HelpWindow.h"

#include "desktop/Documents.h"
#include "desktop/WholeFile.h"
#include "toolkit/HeadButtons.h"
#include "toolkit/MovedInside.h"
#include "toolkit/Style.h"

#include <QScreen>
#include <QTextBrowser>
#include <QUrl>

namespace {

constexpr qint64 LongestGuide = 1 << 20; // bytes
constexpr QSize StartSize(720, 640);
constexpr QSize LeastSize(320, 200);
constexpr int Margin = 16;

QString GuideStyle()
{
    return QStringLiteral("a { color: %1; } td, th { padding: 2px 16px 2px 0; } th { text-align: left; }")
        .arg(StyleColor(Token::Accent).name());
}

/// A window's place, moved and shrunk so that all of it stands in the area; never below the least size.
QRect Inside(const QRect& area, QRect place)
{
    place.setSize(place.size().boundedTo(area.size()).expandedTo(LeastSize));
    return MovedInside(area, place);
}

} // namespace

HelpWindow::HelpWindow(const QString& guide, Documents& documents)
    : guide_(guide)
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    SetTitle(QStringLiteral("Help"));
    setMinimumSize(LeastSize);
    connect(this, &ChildForm::ShapeChanged, this, [this] {
        if (CurrentShape() == Shape::Normal)
            ComeBack();
    });
    Build();
    text_->document()->setDefaultStyleSheet(GuideStyle());
    text_->setHtml(QString::fromUtf8(WholeFile::Read(guide, LongestGuide)));
    connect(text_, &QTextBrowser::anchorClicked, this, [this, &documents](const QUrl& link) {
        const bool isOfTheWeb =
            link.scheme() == QLatin1String("http") || link.scheme() == QLatin1String("https");
        if (link.isRelative())
            text_->scrollToAnchor(link.fragment());
        else if (isOfTheWeb)
            documents.Open(link.toString(QUrl::FullyEncoded));
    });
}

void HelpWindow::Build()
{
    static constexpr FormButton<HelpWindow> HeadButtons[] {
        { 2, Face::Minimize, " Minimize Window ", "Minimize window",
            [](HelpWindow& help) { help.ToggleMinimize(); } },
        { 1, ShapeFace, " Restore/Maximize Window ", "Restore or maximize window",
            [](HelpWindow& help) { help.ToggleMaximize(); } },
        { 0, Face::Close, " Close Help ", "Close help", [](HelpWindow& help) { help.close(); } },
    };
    AddHeadButtons(*this, HeadButtons);
    text_ = new QTextBrowser(this);
    text_->setObjectName(QStringLiteral("Guide"));
    text_->setAccessibleName(QStringLiteral("Guide"));
    text_->setOpenLinks(false);
    text_->document()->setDocumentMargin(Margin);
    SetBody(text_);
}

void HelpWindow::PlaceOver(const QWidget& frame)
{
    const QRect area = frame.screen()->availableGeometry();
    QRect place(QPoint(), StartSize);
    place.moveCenter(frame.geometry().center());
    setGeometry(Inside(area, place));
}

void HelpWindow::ComeBack()
{
    const QRect place = normalGeometry();
    if (const QRect reachable = Inside(screen()->availableGeometry(), place); reachable != place)
        setGeometry(reachable);
}

bool HelpWindow::IsGuide(const QString& document)
{
    return document.endsWith(QLatin1String(".hlp"), Qt::CaseInsensitive);
}
