#pragma once

#include "app/ApplicationState.h"
#include "app/ErrFrmBox.h"
#include "app/SystemDialogs.h"
#include "desktop/CupsPrinters.h"
#include "desktop/SystemClipboard.h"
#include "desktop/SystemDocuments.h"
#include "frame/Main.h"

/// The program put together: the parts in the order in which they depend on each other, and the frame on top.
class Program {
public:
    /// Prepares the libraries and makes the frame, not yet shown. applicationFolder as in ApplicationState.
    explicit Program(const QString& applicationFolder);

    Main& MainWindow() { return main_; }
    ApplicationState& State() { return state_; }

private:
    /// What must stand before any part does: the picture coders and the face.
    struct Libraries {
        Libraries();
    };

    Libraries libraries_;
    ApplicationState state_;
    SystemClipboard clipboard_;
    SystemDialogs dialogs_;
    ErrFrmBox errors_;
    SystemDocuments documents_;
    CupsPrinters printers_;
    Main main_;
};
