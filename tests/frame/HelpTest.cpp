// The guide and the documents that the desktop opens.
#include "tests/frame/FrameFixture.h"
#include "tests/testing/AccessFaults.h"

#include <QFile>
#include <QScreen>
#include <QTextBrowser>
#include <QUrl>

namespace {

class HelpTest : public FrameFixture {
protected:
    void WriteGuide(const QByteArray& text) const
    {
        QFile guide(state.HelpPath);
        ASSERT_TRUE(guide.open(QIODevice::WriteOnly));
        guide.write(text);
    }
    static QTextBrowser* Guide()
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QStringLiteral("HelpWindow") && window->isVisible())
                return window->findChild<QTextBrowser*>(QStringLiteral("Guide"));
        return nullptr;
    }
};

} // namespace

TEST_F(HelpTest, AMissingGuideIsTold)
{
    errors.Expect(QStringLiteral("Error!"), QStringLiteral("Help file \"TAQ.hlp\" missing,"));
    Click("xphelp1");
    EXPECT_EQ(Guide(), nullptr);
}

TEST_F(HelpTest, TheGuideOpensInAWindowOfItsOwnAndIsNotGivenToTheDesktop)
{
    WriteGuide("<h1>Walk</h1>");
    Click("xphelp1");
    ASSERT_NE(Guide(), nullptr);
    EXPECT_TRUE(Guide()->toPlainText().contains(QStringLiteral("Walk")));
    EXPECT_TRUE(documents.opened.isEmpty());
}

TEST_F(HelpTest, AskedTwiceItIsTheSameWindow)
{
    WriteGuide("<h1>Walk</h1>");
    QTest::keyClick(main.get(), Qt::Key_F1);
    const QTextBrowser* const first = Guide();
    QTest::keyClick(main.get(), Qt::Key_F1);
    EXPECT_EQ(Guide(), first);
}

TEST_F(HelpTest, TheGuideClosesWithTheFrame)
{
    WriteGuide("<h1>Walk</h1>");
    Click("xphelp1");
    main->close();
    EXPECT_EQ(Guide(), nullptr);
}

TEST_F(HelpTest, AnAddressInTheGuideGoesToTheDesktop)
{
    WriteGuide("<a href='https://example.org/'>more</a>");
    Click("xphelp1");
    ASSERT_NE(Guide(), nullptr);
    Q_EMIT Guide()->anchorClicked(QUrl(QStringLiteral("https://example.org/")));
    EXPECT_EQ(documents.opened, QStringList(QStringLiteral("https://example.org/")));
}

TEST_F(HelpTest, NoOtherLinkOfTheGuideLeavesTheProgram)
{
    WriteGuide("<h1 id='walk'>Walk</h1>");
    Click("xphelp1");
    ASSERT_NE(Guide(), nullptr);
    for (const char* link : { "file:///bin/sh", "mailto:a@example.org", "ftp://example.org/", "javascript:0",
             "#walk", "other.html" })
        Q_EMIT Guide()->anchorClicked(QUrl(QLatin1String(link)));
    EXPECT_EQ(documents.opened, QStringList());
}

TEST_F(HelpTest, TheGuideKeepsALeastSizeAndComesBackOntoTheScreen)
{
    WriteGuide("<h1>Walk</h1>");
    Click("xphelp1");
    ASSERT_NE(Guide(), nullptr);
    QWidget* const window = Guide()->window();
    const QRect screen = window->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window->geometry()));
    window->resize(1, 1);
    EXPECT_EQ(window->size(), QSize(320, 200));
    window->move(screen.bottomRight() + QPoint(50, 50));
    window->showMinimized();
    Click("xphelp1");
    EXPECT_TRUE(screen.contains(window->geometry()));
    EXPECT_EQ(window->size(), QSize(320, 200));
}

TEST_F(HelpTest, AnyOtherDocumentGoesToTheDesktopAndItsAnswerComesBack)
{
    const QString notes = folder.filePath(QStringLiteral("notes.txt"));
    ASSERT_TRUE(QFile(notes).open(QIODevice::WriteOnly));
    EXPECT_TRUE(main->StartDoc(notes));
    documents.opens = false;
    EXPECT_FALSE(main->StartDoc(QStringLiteral("https://example.org/")));
    EXPECT_EQ(documents.opened.size(), 2);
}

TEST_F(HelpTest, ADocumentThatIsMissingIsNotOpened)
{
    EXPECT_FALSE(main->StartDoc(folder.filePath(QStringLiteral("gone.txt"))));
    EXPECT_TRUE(documents.opened.isEmpty());
}

TEST_F(HelpTest, AnotherGuideTakesThePlaceOfTheOneShown)
{
    WriteGuide("<h1>Walk</h1>");
    Click("xphelp1");
    const QString other = folder.filePath(QStringLiteral("other.hlp"));
    QFile guide(other);
    ASSERT_TRUE(guide.open(QIODevice::WriteOnly));
    guide.write("<h1>Run</h1>");
    guide.close();
    EXPECT_TRUE(main->StartDoc(other));
    ASSERT_NE(Guide(), nullptr);
    EXPECT_TRUE(Guide()->toPlainText().contains(QStringLiteral("Run")));
}

TEST_F(HelpTest, EveryControlOfItHasANameAndIsReachedByKeys)
{
    WriteGuide("<p><a href='#end'>end</a></p>");
    Click("xphelp1");
    ASSERT_NE(Guide(), nullptr);
    EXPECT_EQ(AccessFaults(*Guide()->window()), "");
}
