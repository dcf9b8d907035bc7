#include "text/FontLists.h"

#include "app/SettingValue.h"
#include "app/TextSettings.h"
#include "toolkit/Style.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

#include <algorithm>
#include <iterator>
#include <vector>

namespace {

constexpr int ShownRows = 8;

struct StyleRow {
    const char* name;
    bool isBold;
    bool isItalic;
};
constexpr StyleRow Styles[] = {
    { "Regular", false, false },
    { "Italic", false, true },
    { "Bold", true, false },
    { "Bold Italic", true, true },
};

constexpr float Sizes[] = { 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 28, 32, 36, 40, 48, 60, 72, 96, 120,
    144 };

struct ListRow {
    const char* objectName;
    const char* caption;
    const char* name; ///< for those who cannot see it
    const char* tip;
    int columns; ///< of its rows, in average characters
};
constexpr ListRow Lists[] = {
    { "List1", "Font", "Font", "", 26 },
    { "List2", "Style", "Font style", "Bold is not printed on captures.", 12 },
    { "List3", "Size", "Font size", "", 6 },
};

QStringList Names(const QString& wanted)
{
    QStringList names = QFontDatabase::families();
    names.removeIf([](const QString& name) { return QFontDatabase::isPrivateFamily(name); });
    if (!names.contains(wanted, Qt::CaseInsensitive))
        names << wanted;
    names.sort(Qt::CaseInsensitive);
    return names;
}

void Select(QListWidget& list, const QString& text)
{
    const auto found = list.findItems(text, Qt::MatchFixedString);
    if (!found.isEmpty())
        list.setCurrentItem(found.first());
}

} // namespace

FontLists::FontLists(QWidget* parent)
    : QWidget(parent)
    , List1(new QListWidget(this))
    , List2(new QListWidget(this))
    , List3(new QListWidget(this))
{
    Build();
    for (const StyleRow& row : Styles)
        List2->addItem(QLatin1String(row.name));
    for (QListWidget* list : { List1, List2, List3 })
        connect(list, &QListWidget::currentRowChanged, this, &FontLists::Changed);
}

void FontLists::Build()
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2 * Grid);
    grid->setVerticalSpacing(Grid);
    QListWidget* const lists[] = { List1, List2, List3 };
    for (int column = 0; column < int(std::size(Lists)); ++column) {
        const ListRow& row = Lists[column];
        QListWidget& list = *lists[column];
        list.setObjectName(QLatin1String(row.objectName));
        list.setAccessibleName(QLatin1String(row.name));
        list.setProperty("Tag", QLatin1String(row.tip));
        list.setFixedWidth(fontMetrics().averageCharWidth() * row.columns + 6 * Grid);
        list.setMinimumHeight(fontMetrics().lineSpacing() * ShownRows + 4 * Grid);
        grid->addWidget(new QLabel(QLatin1String(row.caption), this), 0, column);
        grid->addWidget(&list, 1, column);
    }
}

void FontLists::FillNames(const QString& wanted)
{
    names_.Init(List1);
    for (const QString& name : Names(wanted))
        names_.AddItem(name);
    Select(*List1, wanted);
}

void FontLists::FillSizes(float wanted)
{
    std::vector<float> sizes(std::begin(Sizes), std::end(Sizes));
    if (const auto place = std::ranges::lower_bound(sizes, wanted); place == sizes.end() || *place != wanted)
        sizes.insert(place, wanted);
    List3->clear();
    for (const float size : sizes)
        List3->addItem(SettingValue::Text(size));
    Select(*List3, SettingValue::Text(wanted));
}

void FontLists::Show(const TextSettings& text)
{
    const QSignalBlocker silence(this);
    FillNames(text.SFontName);
    FillSizes(text.SFontSize);
    const auto isStyle = [&text](const StyleRow& row) {
        return row.isBold == text.SFontBold && row.isItalic == text.SFontItalic;
    };
    List2->setCurrentRow(int(std::ranges::find_if(Styles, isStyle) - std::begin(Styles)));
}

void FontLists::Take(TextSettings& text) const
{
    if (const QListWidgetItem* name = List1->currentItem())
        text.SFontName = name->text();
    if (const QListWidgetItem* size = List3->currentItem())
        text.SFontSize = SettingValue::Parse<float>(size->text()).value_or(text.SFontSize);
    if (const int style = List2->currentRow(); style >= 0) {
        text.SFontBold = Styles[style].isBold;
        text.SFontItalic = Styles[style].isItalic;
    }
}

void FontLists::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    for (QListWidget* list : { List1, List3 })
        list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtCenter);
}
