"""The tree check itself, on small trees made for the purpose."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import check_layers


class CheckLayers(unittest.TestCase):
    def faults(self, **files):
        """The faults of a tree; a file is given as room__name__suffix="text"."""
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            for name, text in files.items():
                *place, suffix = name.split("__")
                path = root / ("/".join(place) + "." + suffix)
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text)
            return list(check_layers.faults(root))

    def test_a_window_may_not_include_the_frame(self):
        found = self.faults(frame__Main__h="", viewers__Viewer__cpp='#pragma once\n#include "frame/Main.h"\n')
        self.assertEqual(found, ["viewers/Viewer.cpp:2: viewers/ may not include frame/Main.h"])

    def test_a_window_may_include_the_ground(self):
        self.assertEqual(self.faults(app__Frame__h="", viewers__Viewer__h='#include "app/Frame.h"'), [])

    def test_the_ground_may_not_include_the_frame(self):
        found = self.faults(frame__Main__h="", app__Lead__cpp='#include "frame/Main.h"')
        self.assertEqual(found, ["app/Lead.cpp:1: app/Lead.cpp may not include frame/Main.h"])

    def test_rooms_of_one_floor_do_not_know_each_other(self):
        found = self.faults(toolkit__Strip__h="", imaging__Psd__cpp='#include "toolkit/Strip.h"')
        self.assertEqual(found, ["imaging/Psd.cpp:1: imaging/ may not include toolkit/Strip.h"])

    def test_a_room_includes_its_own_files(self):
        self.assertEqual(self.faults(edit__Tools__h="", edit__Tools__cpp='#include "edit/Tools.h"'), [])

    def test_the_engine_does_not_know_its_widget(self):
        found = self.faults(media__player__Player__h="", media__Decoder__cpp='#include "media/player/Player.h"')
        self.assertEqual(found, ["media/Decoder.cpp:1: media/ may not include media/player/Player.h"])

    def test_the_widget_knows_the_player_interface_and_the_engine(self):
        found = self.faults(video__ltmmPlay__h="", media__FrameServer__h="",
                            media__player__Player__h='#include "media/FrameServer.h"\n#include "video/ltmmPlay.h"')
        self.assertEqual(found, [])

    def test_nothing_includes_tests(self):
        found = self.faults(tests__clips__BarCode__h="", media__Index__cpp='#include "tests/clips/BarCode.h"')
        self.assertEqual(found, ["media/Index.cpp:1: media/ may not include tests/clips/BarCode.h"])

    def test_a_test_may_include_every_room(self):
        self.assertEqual(self.faults(frame__Main__h="", tests__x__Tour__cpp='#include "frame/Main.h"'), [])

    def test_a_new_folder_needs_a_floor(self):
        found = self.faults(attic__Box__cpp="")
        self.assertEqual(found, ["attic/Box.cpp: stands in no room; tools/check_layers.py lists them"])

    def test_a_foreign_library_ends_at_its_room(self):
        found = self.faults(video__A__cpp="#include <libavcodec/avcodec.h>", edit__B__cpp="#include <opencv2/core.hpp>",
                            print__C__cpp="#include <cups/cups.h>", capture__D__cpp="#include <Magick++.h>")
        self.assertEqual(sorted(found), ["capture/D.cpp:1: Magick++.h ends at imaging/",
                                         "edit/B.cpp:1: opencv2/core.hpp ends at imaging/",
                                         "print/C.cpp:1: cups/cups.h ends at desktop/",
                                         "video/A.cpp:1: libavcodec/avcodec.h ends at media/"])

    def test_a_foreign_library_is_at_home_in_its_room_and_its_tests(self):
        self.assertEqual(self.faults(media__player__A__cpp="#include <libswscale/swscale.h>",
                                     tests__imaging__B__cpp="#include <opencv2/core.hpp>"), [])

    def test_colours_are_named_in_the_style_only(self):
        found = self.faults(toolkit__Style__cpp='QColor("#123456")', video__A__cpp='auto c = QColor(1, 2, 3);',
                            viewers__B__cpp='const char* c = "#1a2b3c";', edit__C__cpp="QColor(pixel)")
        self.assertEqual(found, ["video/A.cpp:1: the colour QColor(1 belongs into toolkit/Style",
                                 'viewers/B.cpp:1: the colour "#1a2b3c" belongs into toolkit/Style'])


if __name__ == "__main__":
    unittest.main()
