#pragma once

#include "print/cSetDfltPrinter.h"
#include "settingsui/Options.h"
#include "tests/testing/FakeFrame.h"
#include "toolkit/Button_XP.h"
#include "toolkit/xpcheckbox.h"
#include "toolkit/xpradiobutton.h"

#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabWidget>
#include <QTest>

#include <gtest/gtest.h>

/// The options over a frame of the test's own.
class OptionsFixture : public testing::Test {
protected:
    enum Page { AutoNamePage, VideoPage, WindowPage, DisplayPage, FormatPage, PrintPage, TimedPage, WatermarkPage };

    FakeFrame frame;
    ApplicationState& state = frame.state;
    cSetDfltPrinter printer { frame.printers };
    QColor answer; ///< of the colour dialog
    std::unique_ptr<Options> form;

    void SetUp() override { Begin(); }
    /// Opens the dialog anew.
    void Begin()
    {
        form.reset();
        form = std::make_unique<Options>(
            frame, &frame.window, printer, [this](QWidget*, const QString&, const QColor&) { return answer; });
        form->show();
    }
    void Activate()
    {
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void BeginWith(const char* key, const char* text)
    {
        Store(key, text);
        Begin();
    }
    void Store(const char* key, const char* text)
    {
        ASSERT_TRUE(
            state.Settings.SaveSetting(QStringLiteral("Options"), QLatin1String(key), QLatin1String(text)));
    }
    QString Stored(const char* key)
    {
        return state.Settings.GetSetting(QStringLiteral("Options"), QLatin1String(key), QStringLiteral("nothing"));
    }
    template <typename Widget = QWidget> Widget* Find(const char* name)
    {
        auto* found = form->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    xpcheckbox& Box(const char* name) { return *Find<xpcheckbox>(name); }
    xpradiobutton& Radio(const char* name) { return *Find<xpradiobutton>(name); }
    QLineEdit& Edit(const char* name) { return *Find<QLineEdit>(name); }
    QSlider& Slider(const char* name) { return *Find<QSlider>(name); }
    QString Label(const char* name) { return Find<QLabel>(name)->text(); }
    bool IsSet(const char* box) { return Box(box).Value() == xpcheckbox::Set; }
    bool IsChosen(const char* radio) { return Radio(radio).Value(); }
    bool IsEnabled(const char* name) { return Find(name)->isEnabled(); }

    QTabWidget& Tabs() { return *Find<QTabWidget>("VideoSoftIndexTab1"); }
    void ComeTo(Page page) { Tabs().setCurrentIndex(page); }
    /// Comes to the page of a control and clicks it.
    void Click(const char* name)
    {
        QWidget* const control = Find(name);
        for (int page = 0; page < Tabs().count(); ++page)
            if (Tabs().widget(page)->isAncestorOf(control))
                Tabs().setCurrentIndex(page);
        ASSERT_TRUE(control->isVisible()) << name;
        const int middle = control->height() / 2;
        QTest::mouseClick(control, Qt::LeftButton, {}, QPoint(middle, middle));
    }
    void Save() { Click("Cmds(0)"); }
};
