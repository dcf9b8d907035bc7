#include "toolkit/FileDialog.h"

#include <gtest/gtest.h>

namespace {

QString Nul()
{
    return QString(QChar());
}

} // namespace

TEST(Filter, EveryBarBecomesANul)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("AVI|*.avi|All|*.*"));
    EXPECT_EQ(dialog.Filter(), QStringLiteral("AVI") + Nul() + "*.avi" + Nul() + "All" + Nul() + "*.*");
}

TEST(Filter, AColonSeparatesLikeABar)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("AVI:*.avi|All:*.*"));
    EXPECT_EQ(dialog.Filter(), QStringLiteral("AVI") + Nul() + "*.avi" + Nul() + "All" + Nul() + "*.*");
}

TEST(Filter, PatternsOfOneNameBecomeOneFilterBehindTheNameAsItStands)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("Video Files (*.avi;*.m2)|*.avi;*.m2|AVI, DivX Files (*.avi)|*.avi"));
    EXPECT_EQ(NameFilters(dialog.Filter()),
        QStringList({ QStringLiteral("Video Files (*.avi;*.m2) (*.avi *.AVI *.m2 *.M2)"),
            QStringLiteral("AVI, DivX Files (*.avi) (*.avi *.AVI)") }));
}

TEST(Filter, APatternMeetsSmallLettersAndCapitalsHoweverItIsWritten)
{
    for (const char* pattern : { "*.avi", "*.AVI", "*.Avi", " *.avi " })
        EXPECT_EQ(NameFilters(QStringLiteral("AVI") + Nul() + QLatin1String(pattern)),
            QStringList({ QStringLiteral("AVI (*.avi *.AVI)") }));
    EXPECT_EQ(NameFilters(QStringLiteral("Numbered") + Nul() + "*.001"),
        QStringList({ QStringLiteral("Numbered (*.001)") }));
}

TEST(Filter, AllFilesNeedNoPointInTheirName)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("All Files (*.*)|*.*"));
    EXPECT_EQ(NameFilters(dialog.Filter()), QStringList({ QStringLiteral("All Files (*.*) (*)") }));
}

TEST(Filter, ANameWithoutPatternsIsLeftOut)
{
    EXPECT_EQ(NameFilters(QString()), QStringList());
    EXPECT_EQ(NameFilters(QStringLiteral("AVI")), QStringList());
}
