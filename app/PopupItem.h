#pragma once

#include <QStringList>

/// An item of a popup: its caption, what its choice does to the window or player that the popup is for, and
/// whether it shows a check for it; an item without that never does.
template <typename Subject> struct PopupItem {
    const char* caption;
    void (*act)(Subject&);
    bool (*isChecked)(const Subject&) = nullptr;
};

/// What Frame::OpenMenus takes of a table of items, in their order.
template <typename Subject, size_t N> QStringList CaptionsOf(const PopupItem<Subject> (&items)[N])
{
    QStringList captions;
    for (const PopupItem<Subject>& item : items)
        captions << QLatin1String(item.caption);
    return captions;
}

/// And of their checks, as they stand for the subject.
template <typename Subject, size_t N>
int CheckedOf(const PopupItem<Subject> (&items)[N], const Subject& subject)
{
    int checked = 0;
    for (size_t item = 0; item < N; ++item)
        if (items[item].isChecked && items[item].isChecked(subject))
            checked |= 1 << item;
    return checked;
}
