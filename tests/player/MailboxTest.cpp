#include "media/player/Mailbox.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <thread>

using player::Mail;
using player::Mailbox;

namespace {

Mail MailWith(int number)
{
    Mail mail;
    mail.shot.emplace();
    mail.shot->number = number;
    return mail;
}

} // namespace

class MailboxTest : public testing::Test {
protected:
    std::shared_ptr<QObject> receiver_ = std::make_shared<QObject>();
    std::vector<Mail> read_;
    std::shared_ptr<Mailbox> box_ =
        std::make_shared<Mailbox>(receiver_.get(), [this](const Mail& mail) { read_.push_back(mail); });
};

TEST_F(MailboxTest, ComesByTheEventLoopAndNotBefore)
{
    std::thread([this] { box_->Post(MailWith(1)); }).join();
    EXPECT_TRUE(read_.empty());
    QCoreApplication::processEvents();
    ASSERT_EQ(read_.size(), 1U);
    EXPECT_EQ(read_[0].shot->number, 1);
}

TEST_F(MailboxTest, OfSeveralPicturesTheNewestCounts)
{
    for (int number = 0; number < 5; ++number)
        box_->Post(MailWith(number));
    QCoreApplication::processEvents();
    ASSERT_EQ(read_.size(), 1U);
    EXPECT_EQ(read_[0].shot->number, 4);
}

TEST_F(MailboxTest, ALaterPictureDoesNotSwallowAFailureOrTheEnd)
{
    Mail mail;
    mail.fault = { media::Failure::Damaged, 1 };
    box_->Post(mail);
    mail = {};
    mail.end.emplace();
    box_->Post(mail);
    box_->Post(MailWith(9));
    QCoreApplication::processEvents();
    ASSERT_EQ(read_.size(), 1U);
    ASSERT_TRUE(read_[0].fault);
    EXPECT_EQ(read_[0].fault->failure, media::Failure::Damaged);
    EXPECT_TRUE(read_[0].end);
    EXPECT_EQ(read_[0].shot->number, 9);
}

TEST_F(MailboxTest, AClosedBoxSwallowsWhatIsUnderWayAndWhatComesLater)
{
    box_->Post(MailWith(1));
    box_->Close();
    box_->Post(MailWith(2));
    QCoreApplication::processEvents();
    EXPECT_TRUE(read_.empty());
}

TEST_F(MailboxTest, AReceiverThatIsGoneIsNotCalled)
{
    box_->Post(MailWith(1));
    box_->Close();
    receiver_.reset();
    box_->Post(MailWith(2));
    QCoreApplication::processEvents();
    EXPECT_TRUE(read_.empty());
}
