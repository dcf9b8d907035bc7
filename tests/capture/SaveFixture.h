#pragma once

#include "capture/SaveCapture.h"
#include "imaging/PictureFile.h"
#include "tests/testing/FakeFrame.h"
#include "tests/testing/Files.h"
#include <gtest/gtest.h>

/// A frame whose active form holds a capture; the current folder is a temporary one.
class SaveFixture : public testing::Test {
protected:
    static void SetUpTestSuite() { imaging::PictureFile::Initialise(); }

    SaveFixture()
        : before_(QDir::currentPath())
    {
        QDir::setCurrent(current_.path());
        Make(frame_.folder.filePath(QStringLiteral("chosen")));
        frame_.state.OldFolder = frame_.folder.filePath(QStringLiteral("chosen"));
        form_ = new QWidget;
        form_->setAttribute(Qt::WA_DeleteOnClose);
        lead_ = new Lead(form_);
        lead_->SetBitmap(Capture());
        form_->show();
        frame_.activeForm = form_;
        frame_.activeCapture = lead_;
        frame_.statusShown[StatusLabel::AutoCapture] = true;
    }
    ~SaveFixture() override
    {
        QDir::setCurrent(before_);
        delete form_;
    }

    static QImage Capture()
    {
        QImage picture(16, 8, QImage::Format_BGR888);
        picture.fill(QColor(20, 120, 220));
        return picture;
    }
    static void Make(const QString& folder) { QDir().mkpath(folder); }
    QString Current(const char* name) const { return QDir::currentPath() + u'/' + QString::fromLatin1(name); }
    QString Chosen(const char* name) const
    {
        return frame_.state.OldFolder + u'/' + QString::fromLatin1(name);
    }
    QString AutoSave(const char* name) const
    {
        return frame_.folder.filePath(QStringLiteral("AutoSave/") + QString::fromLatin1(name));
    }

    void StoreExt(const char* ext)
    {
        ASSERT_TRUE(frame_.state.Settings.SaveSetting(
            QStringLiteral("Options"), QStringLiteral("Ext"), QString::fromLatin1(ext)));
    }
    void Answer(const QString& path) { frame_.dialogs.saveNames.push(path); }
    void ExpectMessage()
    {
        frame_.errors.Expect(QStringLiteral("Error!"), QStringLiteral("Error saving captured video frame."));
    }
    void ExpectSaved(const QString& path)
    {
        EXPECT_EQ(frame_.state.CurrentFile, path);
        EXPECT_EQ(frame_.status.value(StatusLabel::Operation), QStringLiteral("Capture Saved"));
        EXPECT_FALSE(frame_.statusShown[StatusLabel::AutoCapture]);
        EXPECT_GT(QFileInfo(path).size(), 0) << path.toStdString();
    }
    bool IsFormOpen() const { return form_ && form_->isVisible(); }

    QTemporaryDir current_;
    FakeFrame frame_;
    QPointer<QWidget> form_;
    Lead* lead_ = nullptr;

private:
    QString before_;
};
