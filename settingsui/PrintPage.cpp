#include "settingsui/PrintPage.h"

#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Talk.h"
#include "desktop/Printers.h"
#include "print/AAPrintPicture.h"
#include "print/cSetDfltPrinter.h"
#include "settingsui/OptionFields.h"
#include "settingsui/PreviewSize.h"
#include "toolkit/Button_XP.h"
#include "toolkit/Style.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QVBoxLayout>

namespace {

constexpr BoxRow Boxes[] = {
    { Key::HighQ, "check8", "High Quality Printing", "600 dots to the inch in place of 300." },
    { Key::BW, "check9", "Print in B&W", "In shades of gray." },
};
/// From the top left, row by row; their spacing belongs to them.
constexpr const char* Alignments[] = { "Top        ~  Left", "Top        ~  Center", "Top        ~  Right",
    "Middle   ~  Left", "Middle   ~  Center", "Middle   ~  Right", "Bottom  ~  Left", "Bottom  ~  Center",
    "Bottom  ~  Right" };
constexpr int Center = 4;
constexpr QSize PreviewRoom(200, 272);
constexpr QSize SampleSize(320, 240);
constexpr int PrinterRows = 5;

/// The answer of a question during which windows are painted.
template <typename Question> auto Waiting(Question question)
{
    const Hourglass waiting;
    return question();
}

} // namespace

PrintPage::PrintPage(Frame& frame, OptionFields& fields, cSetDfltPrinter& defaultPrinter)
    : OptionsPage(fields)
    , frame_(frame)
    , defaultPrinter_(defaultPrinter)
    , AAPrintPicture1(new AAPrintPicture(frame, this))
{
    AAPrintPicture1->setObjectName(QStringLiteral("AAPrintPicture1"));
    QBoxLayout& halves = AddRow(Column());
    halves.setSpacing(4 * Grid);
    auto* left = new QVBoxLayout;
    left->setSpacing(2 * Grid);
    halves.addLayout(left, 1);
    for (const BoxRow& row : Boxes)
        AddBox(*left, row);
    BuildAlignment(*left);
    BuildPrinters(*left);
    picPreview = new QLabel(this);
    picPreview->setObjectName(QStringLiteral("picPreview"));
    picPreview->setFixedSize(PreviewRoom);
    picPreview->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    halves.addWidget(picPreview, 0, Qt::AlignTop);
    Column().addStretch();
}

void PrintPage::BuildAlignment(QBoxLayout& layout)
{
    QBoxLayout& row = AddRow(layout);
    row.addWidget(new QLabel(QStringLiteral("Align Graphic:"), this));
    cmbAlign = new QComboBox(this);
    Name(*cmbAlign, "cmbAlign", "Align graphic", "Where a picture stands on its page.");
    for (const char* const alignment : Alignments)
        cmbAlign->addItem(QLatin1String(alignment));
    row.addWidget(cmbAlign, 1);
    Co = AddCommand(row, "Co", "C&enter", "Back to the middle of the page.");
    Fields().Add(Key::PPosition, FieldOf(*cmbAlign));
    connect(cmbAlign, &QComboBox::activated, this, &PrintPage::TakeAlignment);
    connect(Co, &Button_XP::Click, this, [this] {
        cmbAlign->setCurrentIndex(Center);
        TakeAlignment();
    });
    // The list gives the keyboard away with each choice, yet its arrows go on.
    connect(Co, &Button_XP::KeyDown, this, [this](int key) {
        const int next = cmbAlign->currentIndex() + (key == Qt::Key_Down) - (key == Qt::Key_Up);
        if (next != cmbAlign->currentIndex() && next >= 0 && next < cmbAlign->count()) {
            cmbAlign->setCurrentIndex(next);
            TakeAlignment();
        }
    });
}

void PrintPage::BuildPrinters(QBoxLayout& layout)
{
    QVBoxLayout& group = AddGroup(layout, "Select Default Printer");
    List1 = new QListWidget(this);
    Name(*List1, "List1", "Printers", "The printers of this system.");
    List1->setMinimumHeight(fontMetrics().lineSpacing() * PrinterRows + 4 * Grid);
    List1->setMinimumWidth(0);
    group.addWidget(List1, 1);
    whyNone_ = new QLabel(this);
    whyNone_->setWordWrap(true);
    whyNone_->hide();
    group.addWidget(whyNone_);
    QBoxLayout& current = AddRow(group);
    current.addWidget(new QLabel(QStringLiteral("Default printer:"), this));
    Label9 = new QLabel(this);
    Label9->setObjectName(QStringLiteral("Label9"));
    current.addWidget(Label9, 1);
    Button_XP* const set =
        AddCommand(group, "Cmds(2)", "Set &Default Printer", "The chosen printer becomes the default.");
    connect(set, &Button_XP::Click, this, &PrintPage::SetDefaultPrinter);
}

/// Without a picture behind the windows a plain one shows the place.
QImage PrintPage::SamplePicture() const
{
    QImage picSource = frame_.PicSource();
    if (!picSource.isNull())
        return picSource;
    QImage sample(SampleSize, QImage::Format_RGB32);
    sample.fill(StyleColor(Token::LineLight));
    return sample;
}

void PrintPage::TakeAlignment()
{
    const QPointer<PrintPage> alive(this);
    ShowPreview();
    if (alive)
        Co->setFocus(Qt::OtherFocusReason);
}

void PrintPage::ShowPreview()
{
    AAPrintPicture1->SetShowBorder(false);
    AAPrintPicture1->SetAlign(cmbAlign->currentIndex());
    AAPrintPicture1->SetPicture(SamplePicture());
    const QPointer<PrintPage> alive(this);
    const QImage page = AAPrintPicture1->GetPreview(); // events are handled meanwhile
    if (!alive)
        return;
    if (page.isNull())
        return picPreview->clear();
    QPixmap shown =
        QPixmap::fromImage(page.scaled(PreviewSize(page.size(), PreviewRoom) * devicePixelRatioF(),
            Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    shown.setDevicePixelRatio(devicePixelRatioF());
    picPreview->setPixmap(shown);
}

void PrintPage::ShowPrinters()
{
    const QPointer<PrintPage> alive(this);
    const PrinterList printers = frame_.SystemPrinters().Installed(); // windows are painted meanwhile
    if (!alive)
        return;
    List1->clear();
    List1->addItems(printers.names);
    List1->setCurrentRow(int(printers.names.indexOf(printers.defaultName)));
    Label9->setText(printers.defaultName);
    whyNone_->setText(printers.whyNone);
    whyNone_->setVisible(!printers.whyNone.isEmpty());
}

void PrintPage::SetDefaultPrinter()
{
    const QList<QListWidgetItem*> selected = List1->selectedItems();
    if (selected.size() != 1)
        return frame_.Errors().Show(window(), QStringLiteral("Select Printer"),
            QStringLiteral("Please select a printer from the list."));
    const QString name = selected.first()->text();
    const QPointer<PrintPage> alive(this);
    const bool isSet = Waiting([&] { return defaultPrinter_.SetPrinterAsDefault(name); });
    if (!alive)
        return;
    if (!isSet)
        return frame_.Errors().Show(window(), QStringLiteral("Failed"),
            name + QStringLiteral(" has failed to be set as the default printer."));
    frame_.Errors().Show(window(), QStringLiteral("Success!"),
        name + QStringLiteral(" has successfully been set as the default printer."));
    if (alive)
        ShowDefault();
}

void PrintPage::ShowDefault()
{
    const QPointer<PrintPage> alive(this);
    const QString name = Waiting([this] { return frame_.SystemPrinters().DefaultName(); });
    if (alive)
        Label9->setText(name);
}
