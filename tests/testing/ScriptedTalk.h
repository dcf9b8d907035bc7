#pragma once

#include "app/Talk.h"

#include <queue>

#include <functional>
#include <gtest/gtest.h>

/// Message boxes by a script: a message that nobody expected fails the test, and so does an expected one that
/// does not come.
class ScriptedErrors : public ErrorBox {
public:
    ~ScriptedErrors() override
    {
        EXPECT_TRUE(expected_.empty())
            << "the message \"" << (expected_.empty() ? "" : expected_.front().toStdString())
            << "\" did not come";
    }

    void Expect(const QString& title, const QString& message) { expected_.push(title + u'|' + message); }
    /// Called while a message stands.
    std::function<void()> whileShown;
    QWidget* lastOwner = nullptr;

    void Show(QWidget* owner, const QString& title, const QString& message) override
    {
        const QString shown = title + u'|' + message;
        lastOwner = owner;
        if (expected_.empty() || expected_.front() != shown)
            ADD_FAILURE() << "nobody expected the message " << shown.toStdString();
        else
            expected_.pop();
        if (whileShown)
            whileShown();
    }
    void ShowPlayerError(QWidget* owner, const QString& title, const QString& message) override
    {
        Show(owner, title, message);
    }

private:
    std::queue<QString> expected_;
};

/// File dialogs by a script: a question without an answer fails the test. Tells what was asked last.
class ScriptedDialogs : public FileDialogs {
public:
    ~ScriptedDialogs() override
    {
        EXPECT_TRUE(saveNames.empty() && openNames.empty() && folders.empty() && replaceAnswers.empty())
            << "not everything was asked";
    }

    std::queue<QString> saveNames;
    std::queue<QString> openNames;
    std::queue<QString> folders;
    std::queue<bool> replaceAnswers;
    /// Called while a dialog stands.
    std::function<void()> whileShown;
    QWidget* owner = nullptr;
    QString title;
    QString filter;
    QString folder;
    QString extension;
    QString replaced;

    QString AskSaveName(
        QWidget* window, const QString& heading, const QString& kinds, const QString& start) override
    {
        Asked(window, heading, kinds, start);
        return Next(saveNames);
    }
    QString AskOpenName(QWidget* window, const QString& heading, const QString& kinds, const QString& start,
        const QString& ending) override
    {
        extension = ending;
        Asked(window, heading, kinds, start);
        return Next(openNames);
    }
    QString AskOpenNames(
        QWidget* window, const QString& heading, const QString& kinds, const QString& start) override
    {
        Asked(window, heading, kinds, start);
        return Next(openNames);
    }
    QString AskFolder(QWidget* window, const QString& heading, const QString& start) override
    {
        Asked(window, heading, {}, start);
        return Next(folders);
    }
    bool ConfirmReplace(QWidget* window, const QString& path) override
    {
        owner = window;
        replaced = path;
        return Next(replaceAnswers);
    }

private:
    void Asked(QWidget* window, const QString& heading, const QString& kinds, const QString& start)
    {
        owner = window;
        title = heading;
        filter = kinds;
        folder = start;
        if (whileShown)
            whileShown();
    }

    template <typename Answer> static Answer Next(std::queue<Answer>& answers)
    {
        if (answers.empty()) {
            ADD_FAILURE() << "a question that nobody scripted";
            return {};
        }
        const Answer answer = answers.front();
        answers.pop();
        return answer;
    }
};
