#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <vector>

class NumberLine;
class QComboBox;
class QPlainTextEdit;
class xpcheckbox;
class xpradiobutton;

/// The controls that edit one key of the settings, by the texts of the store.
struct Field {
    /// Puts a text of the store on the controls.
    std::function<void(const QString& text)> show;
    /// The text that the controls stand for; nothing when no button of a group is set.
    std::function<std::optional<QString>()> text;
};

/// One radio button of a group, and the text of the store that it stands for.
struct Choice {
    xpradiobutton* button;
    QString text;
};

/// A box that is set for "True".
Field FieldOf(xpcheckbox& box);
/// Two boxes of which the first stands for "True". A click on one clears the other, so that both may come out
/// clear: that is "False".
Field FieldOfPair(xpcheckbox& yes, xpcheckbox& no);
/// A radio button that is on or off by itself.
Field FieldOf(xpradiobutton& flag);
/// The button whose text ends in the same three letters as the store's; an unknown text sets none.
Field FieldOf(const std::vector<Choice>& choices);
/// The whole number of the line.
Field FieldOf(NumberLine& line);
/// The text without blanks around it.
Field FieldOf(QPlainTextEdit& box);
/// The place in the list, from 0.
Field FieldOf(QComboBox& list);
