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

TEST(Filter, PatternsOfOneNameBecomeOneFilterWithoutTheNamesOwnBrackets)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("Video Files (*.avi;*.mpeg)|*.avi;*.mpeg|AVI, DivX Files (*.avi)|*.avi"));
    EXPECT_EQ(NameFilters(dialog.Filter()),
        QStringList(
            { QStringLiteral("Video Files (*.avi *.mpeg)"), QStringLiteral("AVI, DivX Files (*.avi)") }));
}

TEST(Filter, AllFilesNeedNoPointInTheirName)
{
    cFileDialog dialog;
    dialog.SetFilter(QStringLiteral("All Files (*.*)|*.*"));
    EXPECT_EQ(NameFilters(dialog.Filter()), QStringList({ QStringLiteral("All Files (*)") }));
}

TEST(Filter, ANameWithoutPatternsIsLeftOut)
{
    EXPECT_EQ(NameFilters(QString()), QStringList());
    EXPECT_EQ(NameFilters(QStringLiteral("AVI")), QStringList());
}
