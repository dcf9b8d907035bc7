#include "print/cSetDfltPrinter.h"

#include "tests/testing/FakePrinters.h"

#include <gtest/gtest.h>

namespace {

const QString Alpha = QStringLiteral("Alpha");
const QString Beta = QStringLiteral("Beta");

} // namespace

TEST(cSetDfltPrinter, TheDefaultFoundAtItsCreationIsTheCurrentOne)
{
    FakePrinters printers;
    const cSetDfltPrinter choice(printers);
    EXPECT_EQ(choice.OriginalPrinter, Alpha);
    EXPECT_EQ(choice.CurrentPrinter, Alpha);
}

TEST(cSetDfltPrinter, AnotherPrinterBecomesTheDefault)
{
    FakePrinters printers;
    cSetDfltPrinter choice(printers);
    EXPECT_TRUE(choice.SetPrinterAsDefault(Beta));
    EXPECT_EQ(choice.CurrentPrinter, Beta);
    EXPECT_EQ(choice.OriginalPrinter, Alpha);
    EXPECT_EQ(printers.list.defaultName, Beta);
}

TEST(cSetDfltPrinter, TheOldDefaultComesBackAtTheEnd)
{
    FakePrinters printers;
    {
        cSetDfltPrinter choice(printers);
        choice.SetPrinterAsDefault(Beta);
    }
    EXPECT_EQ(printers.list.defaultName, Alpha);
}

TEST(cSetDfltPrinter, TheUsersOwnChoiceIsHisAgainWithItsSetOfOptions)
{
    FakePrinters printers;
    for (const QString& chosen : { Alpha, QStringLiteral("Alpha/duplex") }) {
        printers.list.chosenDefault = chosen;
        {
            cSetDfltPrinter choice(printers);
            choice.SetPrinterAsDefault(Beta);
            EXPECT_EQ(printers.list.chosenDefault, Beta);
        }
        EXPECT_EQ(printers.list.defaultName, Alpha);
        EXPECT_EQ(printers.list.chosenDefault, chosen);
    }
}

TEST(cSetDfltPrinter, AUserWhoHadChosenNoneHasChosenNoneAgain)
{
    for (const bool goesBackHimself : { false, true }) {
        FakePrinters printers;
        {
            cSetDfltPrinter choice(printers);
            choice.SetPrinterAsDefault(Beta);
            if (goesBackHimself)
                choice.SetPrinterAsDefault(Alpha);
            EXPECT_FALSE(printers.list.chosenDefault.isEmpty());
        }
        EXPECT_EQ(printers.list.chosenDefault, QString());
        EXPECT_EQ(printers.list.defaultName, Alpha);
    }
}

TEST(cSetDfltPrinter, WithoutADefaultThereIsNoneAgain)
{
    FakePrinters printers;
    printers.list.defaultName = printers.systemDefault = QString();
    {
        cSetDfltPrinter choice(printers);
        EXPECT_TRUE(choice.SetPrinterAsDefault(Beta));
    }
    EXPECT_EQ(printers.list.defaultName, QString());
}

TEST(cSetDfltPrinter, ASystemThatDoesNotAnswerIsAskedAgainBeforeItsDefaultIsChanged)
{
    FakePrinters printers;
    const PrinterList answer = printers.list;
    printers.FallSilent();
    {
        cSetDfltPrinter choice(printers);
        EXPECT_FALSE(choice.SetPrinterAsDefault(Beta));
        EXPECT_FALSE(choice.SetPrinterAsDefault(QString())) << "no answer is not no default";
        EXPECT_TRUE(printers.defaultsSet.isEmpty());
        printers.list = answer;
        printers.refusesDefault = false;
        EXPECT_TRUE(choice.SetPrinterAsDefault(Beta));
        EXPECT_EQ(choice.OriginalPrinter, Alpha);
    }
    EXPECT_EQ(printers.list.defaultName, Alpha);
}

TEST(cSetDfltPrinter, TheSameNameIsTrueWithoutAskingTheSystem)
{
    FakePrinters printers;
    {
        cSetDfltPrinter choice(printers);
        printers.refusesDefault = true;
        EXPECT_TRUE(choice.SetPrinterAsDefault(Alpha));
    }
    EXPECT_TRUE(printers.defaultsSet.isEmpty());
    EXPECT_EQ(printers.timesListed, 1);
}

TEST(cSetDfltPrinter, AnEmptyNameIsTrueWhereThereIsNoDefault)
{
    FakePrinters printers;
    printers.RemoveAll();
    cSetDfltPrinter choice(printers);
    EXPECT_EQ(choice.OriginalPrinter, QString());
    EXPECT_TRUE(choice.SetPrinterAsDefault(QString()));
    EXPECT_TRUE(printers.defaultsSet.isEmpty());
}

TEST(cSetDfltPrinter, AnEmptyNameIsFalseWhereThereIsADefault)
{
    FakePrinters printers;
    cSetDfltPrinter choice(printers);
    EXPECT_FALSE(choice.SetPrinterAsDefault(QString()));
    EXPECT_EQ(choice.CurrentPrinter, Alpha);
}

TEST(cSetDfltPrinter, APrinterUnknownToTheSystemIsFalseAndChangesNothing)
{
    FakePrinters printers;
    {
        cSetDfltPrinter choice(printers);
        EXPECT_FALSE(choice.SetPrinterAsDefault(QStringLiteral("Gamma")));
        EXPECT_EQ(choice.CurrentPrinter, Alpha);
    }
    EXPECT_EQ(printers.list.defaultName, Alpha);
}
