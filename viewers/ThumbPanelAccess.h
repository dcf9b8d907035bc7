#pragma once

class ThumbPanel;

/// Makes panels of thumbnails known to assistive technology as lists of their cells; for all that are made
/// afterwards.
void InstallThumbPanelAccess();
/// Tells assistive technology what happened to a panel.
void TellThumbAdded(ThumbPanel& panel, int index);
void TellThumbSelected(ThumbPanel& panel, int index);
