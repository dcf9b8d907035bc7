#include "settingsui/PlainPages.h"

#include <QVBoxLayout>

namespace {

constexpr BoxRow VideoBoxes[] = {
    { Key::LoadVid, "check5", "Load mpeg videos into memory.", "For videos on a slow disk." },
    { Key::VidSave, "check2", "Save directly from video, not graphic. \n( Only saves to 24bit .bmp )",
        "A save takes the frame anew from the video, without what was edited." },
    { Key::OpenVidList, "xpcheckbox2",
        "Don't open the video File Selector List at start up.\n( If more then one video is selected )",
        "The menu of the main window shows the list at any time." },
};

constexpr BoxRow MouseBox { Key::SetFocusYES, "xpcheckbox1",
    "Let the mouse movement bring the Window to the Top.",
    "For capture windows, thumbnails and edit tools." };
constexpr ChoiceRow Thumbnails[] = {
    { "OpThumb(0)", "Open captured thumbnails but not capture window.", "0",
        "This will open the thumbnail window and not the actual capture window." },
    { "OpThumb(1)", "Automatically open captured thumbnails with capture window.", "1",
        "This will open both the thumbnail viewer and the capture windows." },
    { "OpThumb(2)", "Don't open thumbnails at all.", "2",
        "Just open the capture and not the thumbnail window." },
};
constexpr BoxRow WindowBoxes[] = {
    { Key::NoWin, "check4", "Close capture window after it's saved.", "A capture that could not be saved stays." },
    { Key::NameFull, "check12", "Show video NAME only (not full path), on capture window.",
        "Also in the title of the video window." },
};

constexpr ChoiceRow Formats[] = {
    { "Option3", ".bmp", ".bmp", "24 bits, every pixel as it is." },
    { "option4", ".jpg", ".jpg", "The smallest files; pixels change a little." },
    { "option5", ".tga", ".tga", "32 bits, every pixel as it is." },
    { "option6", ".gif", ".gif", "256 colors." },
    { "option7", ".tif", ".tif", "32 bits, every pixel as it is." },
    { "option8", ".png", ".png", "24 bits, every pixel as it is, in small files." },
    { "option9", ".psd", ".psd", "24 bits, every pixel as it is, for picture editors." },
};

} // namespace

VideoPage::VideoPage(OptionFields& fields)
    : OptionsPage(fields)
{
    AddBoxes(VideoBoxes);
    Column().addStretch();
}

WindowPage::WindowPage(OptionFields& fields)
    : OptionsPage(fields)
{
    AddBox(Column(), MouseBox);
    AddChoices(AddGroup(Column(), "Thumbnails"), Key::OpThumb, Kept::AtOnce, Thumbnails);
    AddBoxes(WindowBoxes);
    Column().addStretch();
}

FormatPage::FormatPage(OptionFields& fields)
    : OptionsPage(fields)
{
    AddChoices(AddGroup(Column(), "Select graphic format for video captures."), Key::Ext, Kept::AtOnce, Formats);
    Column().addStretch();
}
