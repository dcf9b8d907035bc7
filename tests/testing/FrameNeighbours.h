#pragma once

#include "app/ApplicationState.h"
#include "tests/testing/FakeClipboard.h"
#include "tests/testing/FakeDocuments.h"
#include "tests/testing/FakePrinters.h"
#include "tests/testing/ScriptedTalk.h"

#include <QTemporaryDir>

/// What a frame stands on: the real state over a temporary folder, and fakes of the rest.
struct FrameNeighbours {
    QTemporaryDir folder;
    ApplicationState state { folder.path(), folder.filePath(QStringLiteral("settings")) };
    FakeClipboard clipboard;
    ScriptedDialogs dialogs;
    ScriptedErrors errors;
    FakeDocuments documents;
    FakePrinters printers;
};
