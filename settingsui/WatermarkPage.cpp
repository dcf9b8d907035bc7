#include "settingsui/WatermarkPage.h"

#include "app/ApplicationState.h"
#include "app/Frame.h"
#include "app/Hourglass.h"
#include "app/Lead.h"
#include "app/SettingValue.h"
#include "imaging/PictureText.h"
#include "settingsui/FontWords.h"
#include "settingsui/OptionFields.h"
#include "text/GetFonts.h"
#include "toolkit/Button_XP.h"
#include "toolkit/ElidedLabel.h"
#include "toolkit/Style.h"
#include "toolkit/SystemColors.h"
#include "toolkit/xpcheckbox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

constexpr PairRow YesNo[] = {
    { "xpcheckbox3(0)", "Yes", "Your text is drawn into each capture when it is saved.",
        "Use watermark: yes" },
    { "xpcheckbox3(1)", "No", "Captures are saved as they are.", "Use watermark: no" },
};
constexpr PairRow AutoManual[] = {
    { "xpcheckbox4(0)", "Auto\nEach capture will have the same text watermark.", "Nobody asks for words." },
    { "xpcheckbox4(1)", "Manual\nYou will need to add a watermark for each capture manually.",
        "You are asked for the words before each save." },
};
constexpr BoxRow WrapBox { Key::WordWrap, "WordWrapCheck", "Use Wordwrap?",
    "If the watermark is too long, it will wrap it to the next line down." };
constexpr NumberRow Left { Key::PositionX, "label12", "HSlider3", "Left", "",
    "Watermark position from the left", "Pixels from the left.", 0, 1000 };
constexpr NumberRow Top { Key::PositionY, "label13", "HSlider4", "Top", "", "Watermark position from the top",
    "Pixels from the top.", 0, 500 };

constexpr ColorNumber ShadowOnColor = 32768;
constexpr ColorNumber ShadowOffColor = 128;
constexpr int TextLines = 5;
constexpr int MiddleGray = 140; // on black or white, letters of this are read equally well

/// A ground on which letters of a colour can be read.
QColor GroundFor(const QColor& letters)
{
    return qGray(letters.rgb()) > MiddleGray ? Qt::black : Qt::white;
}

template <typename Value> void Read(ApplicationState& state, Key key, Value& value)
{
    value = SettingValue::Parse<Value>(state.TextOf(key, Reader::Options)).value_or(Value());
}

} // namespace

WatermarkPage::WatermarkPage(Frame& frame, OptionFields& fields, AskColor askColor)
    : OptionsPage(fields)
    , frame_(frame)
    , askColor_(std::move(askColor))
{
    BuildWords();
    BuildWays();
    BuildPlace();
    BuildFont();
    Column().addStretch();
}

void WatermarkPage::BuildWords()
{
    Column().addWidget(new QLabel(QStringLiteral("Enter Text to go on captures."), this));
    Text1 = new QPlainTextEdit(this);
    Name(*Text1, "Text1", "Text on captures", "The words in the font and colour that captures get.");
    Text1->setTabChangesFocus(true);
    Text1->setFixedHeight(fontMetrics().lineSpacing() * TextLines + 4 * Grid);
    Column().addWidget(Text1);
    Fields().Add(Key::sFontText, FieldOf(*Text1));
}

void WatermarkPage::BuildWays()
{
    QBoxLayout& row = AddRow(Column());
    auto* first = new QVBoxLayout;
    row.addLayout(first);
    AddPair(AddRow(AddGroup(*first, "Use Watermark")), Key::UseWatermark, YesNo);
    AddBox(*first, WrapBox);
    AddPair(AddGroup(row, "Auto or Manual"), Key::WatermarkBATCH, AutoManual);
}

void WatermarkPage::BuildPlace()
{
    auto* grid = new QGridLayout;
    AddGroup(Column(), "Watermark Position:").addLayout(grid);
    AddNumber(*grid, 0, Left);
    AddNumber(*grid, 1, Top);
}

void WatermarkPage::BuildFont()
{
    QBoxLayout& row = AddRow(Column());
    Button_XP* const font = AddCommand(row, "Cmds(5)", "&Font  && Shadow", "Choose how the text looks.");
    connect(font, &Button_XP::Click, this, &WatermarkPage::ChooseFont);
    ColorBox = new QLabel(this);
    Name(*ColorBox, "ColorBox", "Text color", "The color of the text.");
    ColorBox->setFixedSize(fontMetrics().height() * 2, fontMetrics().height());
    ColorBox->setAutoFillBackground(true);
    ColorBox->setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
    row.addWidget(ColorBox);
    FontLabel = new ElidedLabel(this);
    FontLabel->setObjectName(QStringLiteral("FontLabel"));
    row.addWidget(FontLabel, 1);
    for (const auto& [label, name] : { std::pair(&Label14, "Label14"), std::pair(&Label15, "Label15") }) {
        *label = new QLabel(this);
        (*label)->setObjectName(QLatin1String(name));
        row.addWidget(*label);
    }
    BuildShadow(row);
}

void WatermarkPage::BuildShadow(QBoxLayout& row)
{
    row.addSpacing(2 * Grid);
    xpcheckbox5 = AddBox(row, { Key::UseShadows, "xpcheckbox5", "", "The text's shadow." });
    xpcheckbox5->setAccessibleName(QStringLiteral("Shadow"));
    LabelShadow = new QLabel(this);
    LabelShadow->setObjectName(QStringLiteral("LabelShadow"));
    row.addWidget(LabelShadow);
    connect(xpcheckbox5, &xpcheckbox::Click, this, &WatermarkPage::SwitchShadow);
    Fields().Add(Key::UseShadows,
        { [this](const QString& text) { ShowShadow(SettingValue::Parse<bool>(text).value_or(false)); },
            FieldOf(*xpcheckbox5).text });
}

void WatermarkPage::ShowStoredFont()
{
    TextSettings stored;
    ApplicationState& state = frame_.State();
    Read(state, Key::SFontSize, stored.SFontSize);
    Read(state, Key::SFontBold, stored.SFontBold);
    Read(state, Key::SFontName, stored.SFontName);
    Read(state, Key::SFontItalic, stored.SFontItalic);
    Read(state, Key::sFontColor, stored.sFontColor);
    ShowFont(stored);
    FontWords::Show(*Label15, FontWords::SlantAtOpening(stored.SFontItalic));
}

void WatermarkPage::ShowFont(const TextSettings& text)
{
    const QColor color = ColorOf(ColorNumber(text.sFontColor));
    QPalette palette;
    palette.setColor(QPalette::Window, color);
    ColorBox->setPalette(palette);
    QFont font(text.SFontName);
    font.setPointSizeF(std::clamp(double(text.SFontSize), imaging::SmallestPoints, imaging::LargestPoints));
    font.setBold(text.SFontBold);
    font.setItalic(text.SFontItalic);
    Text1->setStyleSheet(
        QStringLiteral("color: %1; background: %2;").arg(color.name(), GroundFor(color).name()));
    Text1->setFont(font);
    FontLabel->setText(QStringLiteral("Font: ") + text.SFontName + QStringLiteral("   Size: ")
        + SettingValue::Text(text.SFontSize));
    FontWords::Show(*Label14, FontWords::Weight(text.SFontBold));
}

void WatermarkPage::ShowShadow(bool isOn)
{
    xpcheckbox5->SetValue(isOn ? xpcheckbox::Set : xpcheckbox::Clear);
    LabelShadow->setText(isOn ? QStringLiteral("Shadow On") : QStringLiteral("Shadow Off"));
    const QColor color = ColorOf(isOn ? ShadowOnColor : ShadowOffColor);
    LabelShadow->setStyleSheet(
        QStringLiteral("color: %1; background: %2; border-radius: 4px; padding: 2px 6px;")
            .arg(color.name(), GroundFor(color).name()));
}

void WatermarkPage::SwitchShadow()
{
    const bool isOn = !frame_.State().UseShadows;
    ShowShadow(isOn);
    Fields().Write(Key::UseShadows, SettingValue::Text(isOn));
    // The box turns over after its click.
    xpcheckbox5->SetValue(isOn ? xpcheckbox::Clear : xpcheckbox::Set);
}

void WatermarkPage::ChooseFont()
{
    const Hourglass waiting;
    const QPointer<GetFonts> form = new GetFonts(frame_, window(), askColor_);
    bool isChosen = false;
    {
        const PointerPause pause;
        isChosen = form->exec() == QDialog::Accepted;
    }
    if (form && isChosen)
        TakeFont(form->Sample());
    delete form;
}

void WatermarkPage::TakeFont(const Lead& sample)
{
    ShowShadow(frame_.State().UseShadows);
    Fields().Write(Key::SFontSize, SettingValue::Text(float(sample.Font.size)));
    Fields().Write(Key::SFontItalic, SettingValue::Text(sample.Font.Italic));
    Fields().Write(Key::SFontName, sample.Font.Name);
    Fields().Write(Key::SFontBold, SettingValue::Text(sample.Font.Bold));
    Fields().Write(Key::sFontColor, SettingValue::Text(qint32(sample.DrawFontColor)));
    const TextSettings& text = frame_.State();
    ShowFont(text);
    FontWords::Show(*Label15, FontWords::SlantOfChosen(text.SFontItalic, text.SFontBold));
}
