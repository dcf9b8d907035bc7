#include "WindowPages.h"

#include "app/ErrFrm.h"
#include "frame/HelpWindow.h"
#include "imaging/PictureFile.h"
#include "tests/frame/PartsOf.h"
#include "tests/testing/FakeFrame.h"
#include "video/URLfrm.h"
#include "video/VideoList.h"
#include "viewers/FullS.h"
#include "viewers/QuickShots.h"
#include "viewers/ThumbPanel.h"
#include "viewers/Viewer.h"

#include <QLineEdit>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

namespace {

/// A landscape of sorts, a different one for each hour of the day.
QImage Landscape(int hour)
{
    QImage picture(480, 270, QImage::Format_BGR888);
    QPainter painter(&picture);
    QLinearGradient sky(0, 0, 0, 180);
    sky.setColorAt(0, QColor::fromHsv(200 + hour * 9 % 60, 140, 200));
    sky.setColorAt(1, QColor::fromHsv(30 + hour, 90, 240));
    painter.fillRect(picture.rect(), sky);
    painter.fillRect(0, 180, 480, 90, QColor::fromHsv(110, 120, 90 + hour * 4));
    painter.setBrush(QColor::fromHsv(45, 160, 255));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(QPoint(60 + hour * 30, 90), 26, 26);
    return picture;
}

class PicturePlayer : public FakePlayer {
public:
    explicit PicturePlayer(QWidget* parent)
        : FakePlayer(parent)
    {
        size = QSize(480, 270);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawImage(rect(), Landscape(5)); }
};

/// The frame over fakes of its neighbours.
struct Stage : FrameNeighbours {
    Main main { PartsOf(*this, [](QWidget* parent) { return new PicturePlayer(parent); }) };

    void Press(const char* button)
    {
        QTest::mouseClick(main.findChild<QWidget*>(QLatin1String(button)), Qt::LeftButton);
    }
};

void ShowFrame(const std::function<void(const QString&, QWidget&)>& take)
{
    Stage stage;
    stage.main.resize(1120, 720);
    stage.main.show();
    take(QStringLiteral("frame-empty"), stage.main);
    stage.dialogs.openNames.push(stage.folder.filePath(QStringLiteral("Holidays on the coast.avi")));
    stage.Press("Cmds(0)");
    take(QStringLiteral("frame-video"), stage.main);
    stage.state.OpThumb = 1;
    stage.Press("Cmds(8)");
    take(QStringLiteral("frame-capture"), stage.main);
    stage.main.resize(stage.main.minimumSizeHint());
    take(QStringLiteral("frame-small"), stage.main);
}

void ShowChildren(const std::function<void(const QString&, QWidget&)>& take)
{
    FakeFrame frame;
    frame.clipboard.picture = Landscape(3);
    Viewer viewer(frame);
    viewer.setAttribute(Qt::WA_DeleteOnClose, false);
    take(QStringLiteral("viewer"), viewer);

    QuickShots strip(frame);
    strip.setAttribute(Qt::WA_DeleteOnClose, false);
    take(QStringLiteral("thumbnails-empty"), strip);
    for (int hour = 1; hour < 9; ++hour) {
        frame.hold.SetBitmap(Landscape(hour));
        strip.mnuControlsAdd2();
    }
    auto* panel = strip.findChild<ThumbPanel*>();
    QTest::mouseClick(panel, Qt::LeftButton, {}, panel->CellRect(2).center());
    take(QStringLiteral("thumbnails"), strip);
    FullS small(frame, Landscape(4));
    take(QStringLiteral("full-screen"), small);
    FullS large(frame, Landscape(6).scaled(2400, 1350));
    take(QStringLiteral("full-screen-fitted"), large);

    frame.state.Videos = { QString(), QStringLiteral("/home/user/Videos/Aurora.avi"),
        QStringLiteral("/home/user/Videos/Holidays on the coast and further along the old road.mpg"),
        QStringLiteral("/home/user/Videos/Sunset.mpg"), QString() };
    frame.state.VideoCount = 3;
    VideoList list(frame);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    list.resize(300, 260);
    take(QStringLiteral("video-list"), list);
}

void ShowAddressAndHelp(const std::function<void(const QString&, QWidget&)>& take)
{
    Stage stage;
    stage.dialogs.openNames.push(stage.folder.filePath(QStringLiteral("a.avi")));
    stage.Press("Cmds(0)");
    URLfrm address(stage.main, *stage.main.findChild<VideoWindow*>(), nullptr);
    take(QStringLiteral("address-empty"), address);
    address.findChild<QLineEdit*>()->setText(QStringLiteral("https://www.example.org/films/snow.mpg"));
    take(QStringLiteral("address"), address);
    HelpWindow help(QStringLiteral(SOURCE_DIR "/resources/help/guide.html"), stage.documents);
    help.setAttribute(Qt::WA_DeleteOnClose, false);
    help.resize(720, 640);
    take(QStringLiteral("help"), help);
}

void ShowMessages(const std::function<void(const QString&, QWidget&)>& take)
{
    ErrFrm plain(nullptr, QStringLiteral("Error!"), QStringLiteral("Error saving captured video frame."));
    take(QStringLiteral("message"), plain);
    ErrFrm player(nullptr, QStringLiteral("Error Abort"),
        QStringLiteral("The video is damaged or incomplete.\n").repeated(24));
    player.OfferSilence();
    take(QStringLiteral("message-long"), player);
}

} // namespace

void ShowWindows(const std::function<void(const QString& name, QWidget& window)>& take)
{
    imaging::PictureFile::Initialise();
    ShowFrame(take);
    ShowChildren(take);
    ShowAddressAndHelp(take);
    ShowMessages(take);
}
