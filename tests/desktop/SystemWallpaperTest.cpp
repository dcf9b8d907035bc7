// Which of the ways to the desktop's wallpaper are tried, and what is told in the end.
#include "desktop/SystemWallpaper.h"
#include "desktop/GnomeWallpaper.h"
#include "desktop/KdeWallpaper.h"
#include "desktop/PortalWallpaper.h"
#include "desktop/RootWallpaper.h"
#include "desktop/XfceWallpaper.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using Result = Wallpaper::Result;

class Way : public Wallpaper {
public:
    Way(Outcome outcome, QStringList& log, const char* name, bool isOpen = true)
        : outcome_(std::move(outcome))
        , log_(log)
        , name_(QLatin1String(name))
        , isOpen_(isOpen)
    {
    }
    bool CanSet() const override { return isOpen_; }
    void Set(const QString& path, Done done) override
    {
        log_ << name_ + u' ' + path;
        done(outcome_);
    }

private:
    Outcome outcome_;
    QStringList& log_;
    QString name_;
    bool isOpen_;
};

class SystemWallpaperTest : public testing::Test {
protected:
    QStringList log;
    SystemWallpaper::Ways ways;
    std::optional<Wallpaper::Outcome> outcome;

    void Add(const char* name, Result result, const char* reason = "", bool isOpen = true)
    {
        ways.push_back(
            std::make_unique<Way>(Wallpaper::Outcome { result, QLatin1String(reason) }, log, name, isOpen));
    }
    void Set()
    {
        SystemWallpaper wallpaper(std::move(ways));
        wallpaper.Set(QStringLiteral("/a.bmp"), [this](const Wallpaper::Outcome& told) { outcome = told; });
        ASSERT_TRUE(outcome);
    }
};

template <typename Kind> bool Is(const std::unique_ptr<Wallpaper>& way)
{
    return dynamic_cast<const Kind*>(way.get()) != nullptr;
}

} // namespace

TEST_F(SystemWallpaperTest, TheFirstWayThatIsOpenIsTaken)
{
    Add("closed", Result::Set, "", false);
    Add("first", Result::Set);
    Add("second", Result::Set);
    Set();
    EXPECT_EQ(outcome->result, Result::Set);
    EXPECT_EQ(log, QStringList { QStringLiteral("first /a.bmp") });
}

TEST_F(SystemWallpaperTest, AWayThatIsNotThereGivesWayToTheNext)
{
    Add("first", Result::NotHere, "Not here.");
    Add("second", Result::Set);
    Set();
    EXPECT_EQ(outcome->result, Result::Set);
    EXPECT_EQ(log.size(), 2);
}

TEST_F(SystemWallpaperTest, ANoIsNotGoneRound)
{
    for (const Result no : { Result::Declined, Result::NotSet }) {
        log.clear();
        Add("first", no, "No.");
        Add("second", Result::Set);
        Set();
        EXPECT_EQ(outcome->result, no);
        EXPECT_EQ(outcome->reason, QStringLiteral("No."));
        EXPECT_EQ(log.size(), 1);
    }
}

TEST_F(SystemWallpaperTest, WhenNoWayIsThereTheLastReasonIsTold)
{
    Add("first", Result::NotHere, "One.");
    Add("second", Result::NotHere, "Two.");
    Set();
    EXPECT_EQ(outcome->result, Result::NotHere);
    EXPECT_EQ(outcome->reason, QStringLiteral("Two."));
}

TEST_F(SystemWallpaperTest, WithoutAnyWayItSaysSo)
{
    Set();
    EXPECT_EQ(outcome->result, Result::NotHere);
    EXPECT_EQ(outcome->reason, QStringLiteral("This desktop does not let a program set its wallpaper."));
}

TEST(SystemWallpaperWays, TheDesktopIsKnownByAnyOfTheNamesThatTheSessionGivesIt)
{
    const auto gnome = SystemWallpaper::WaysOf({ QStringLiteral("ubuntu"), QStringLiteral("GNOME") });
    ASSERT_EQ(gnome.size(), 2U);
    EXPECT_TRUE(Is<PortalWallpaper>(gnome[0]) && Is<GnomeWallpaper>(gnome[1]));
    const auto kde = SystemWallpaper::WaysOf({ QStringLiteral("KDE") });
    ASSERT_EQ(kde.size(), 2U);
    EXPECT_TRUE(Is<PortalWallpaper>(kde[0]) && Is<KdeWallpaper>(kde[1]));
}

TEST(SystemWallpaperWays, DesktopsWithoutAPortalOfTheirOwnAreNotLeftToTheOneOfAnother)
{
    for (const char* desktop : { "MATE", "X-Cinnamon" }) {
        const auto ways = SystemWallpaper::WaysOf({ QLatin1String(desktop) });
        ASSERT_EQ(ways.size(), 1U) << desktop;
        EXPECT_TRUE(Is<GnomeWallpaper>(ways[0])) << desktop;
    }
    const auto xfce = SystemWallpaper::WaysOf({ QStringLiteral("XFCE") });
    ASSERT_EQ(xfce.size(), 1U);
    EXPECT_TRUE(Is<XfceWallpaper>(xfce[0]));
}

TEST(SystemWallpaperWays, AnUnknownDesktopHasItsRootWindowThenThePortal)
{
    for (const QStringList& names : { QStringList(), QStringList { QStringLiteral("Openbox") } }) {
        const auto ways = SystemWallpaper::WaysOf(names);
        ASSERT_EQ(ways.size(), 2U);
        EXPECT_TRUE(Is<RootWallpaper>(ways[0]) && Is<PortalWallpaper>(ways[1]));
    }
}
