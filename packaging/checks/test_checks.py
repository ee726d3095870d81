#!/usr/bin/python3
"""Tests that the checks in this folder find what they look for."""

import tempfile
import unittest
from pathlib import Path

import includes
import listed
import words


class Includes(unittest.TestCase):
    def breaches(self, files):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in files.items():
                path = Path(folder) / "src" / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return includes.check(folder)

    def assert_refused(self, files, message):
        found = self.breaches(files)
        self.assertEqual(len(found), 1, found)
        self.assertIn(message, found[0])

    def test_accepts_allowed_edges(self):
        self.assertEqual(self.breaches({
            "app/main.cpp": '#include "clipboard/view/Page.h"\n#include "platform/x11/connection/Server.h"\n',
            "clipboard/view/Page.h": '#include "clipboard/ClipboardViewModel.h"\n'
                                     "#include <QtWidgets/QWidget>\n",
            "clipboard/ClipboardViewModel.h": '#include "clipboard/ClipboardStore.h"\n',
            "clipboard/ClipboardStore.h": '#include "platform/FileSystem.h"\n',
            "platform/FileSystem.h": "#include <QtCore/QString>\n",
            "platform/x11/connection/Server.h": '#include "platform/FileSystem.h"\n#include <xcb/xcb.h>\n',
        }), [])

    def assert_edge_is_refused(self, folder, other):
        self.assert_refused({f"{folder}/One.h": f'#include "{other}/Other.h"\n',
                             f"{other}/Other.h": ""}, f"{folder} must not include {other}")

    def test_refuses_a_view_in_a_view_model(self):
        self.assert_edge_is_refused("clipboard", "clipboard/view")

    def test_refuses_one_feature_in_another(self):
        self.assert_edge_is_refused("notes", "clipboard")

    def test_refuses_a_view_in_the_view_of_another_feature(self):
        self.assert_edge_is_refused("markdown/view", "notes/view")

    def test_refuses_a_feature_in_the_widget_kit(self):
        self.assert_edge_is_refused("ui/controls", "panel")

    def test_refuses_a_list_in_a_control(self):
        self.assert_edge_is_refused("ui/controls", "ui/list")

    def test_refuses_a_control_in_the_theme(self):
        self.assert_edge_is_refused("ui/theme", "ui/controls")

    def test_refuses_the_widget_kit_in_a_model(self):
        self.assert_edge_is_refused("notes", "ui/theme")

    def test_refuses_keys_in_windows(self):
        self.assert_edge_is_refused("platform/x11/windows", "platform/x11/keys")

    def test_refuses_a_back_end_in_a_feature(self):
        self.assert_edge_is_refused("panel", "platform/selection")

    def test_refuses_a_back_end_outside_the_composition_root(self):
        self.assert_edge_is_refused("app", "platform/desktop")

    def test_refuses_one_back_end_in_another(self):
        self.assert_edge_is_refused("platform/x11/connection", "platform/desktop")

    def test_refuses_the_application_in_the_core(self):
        self.assert_edge_is_refused("core", "app")

    def test_refuses_the_core_in_an_interface(self):
        self.assert_edge_is_refused("platform", "core")

    def test_refuses_a_folder_missing_from_the_table(self):
        self.assert_refused({"gadgets/Gadget.h": ""}, "not in the table")

    def test_refuses_a_service_in_a_record(self):
        self.assert_refused({"clipboard/ClipboardStore.h": '#include "clipboard/Monitor.h"\n',
                             "clipboard/Monitor.h": ""}, "must not include the service")

    def test_the_table_has_no_cycles(self):
        folders = list(includes.ALLOWED)
        edges = {folder: {other for other in folders
                          if other != folder and includes.may_include(folder, other)}
                 for folder in folders}
        self.assertEqual(list(includes.cycles(edges)), [])

    def test_finds_a_cycle(self):
        found = list(includes.cycles({"a": {"b"}, "b": {"c"}, "c": {"a"}}))
        self.assertEqual(found, ["a -> b -> c -> a"])

    def test_refuses_the_window_system_outside_its_back_end(self):
        self.assert_refused({"panel/Manager.cpp": "xcb_flush(connection);\n"}, "the window system")

    def test_refuses_widgets_in_a_model(self):
        self.assert_refused({"panel/Manager.h": "#include <QtWidgets/QLabel>\n"}, "not use widgets")

    def test_refuses_the_clipboard_of_the_toolkit(self):
        self.assert_refused({"panel/view/Root.cpp": "QClipboard* c = nullptr;\n"}, "QClipboard")

    def test_refuses_an_include_relative_to_its_own_folder(self):
        self.assert_refused({"panel/Manager.cpp": '#include "Manager.h"\n'}, "relative to src/")

    def test_refuses_a_toolkit_header_without_its_module(self):
        self.assert_refused({"panel/Manager.h": "#include <QString>\n"}, "lacks its module")


class Listed(unittest.TestCase):
    def missing(self, listing):
        with tempfile.TemporaryDirectory() as folder:
            tests = Path(folder) / "tests/unit"
            tests.mkdir(parents=True)
            (tests / "TestOne.cpp").touch()
            (tests / "CMakeLists.txt").write_text(listing, encoding="utf-8")
            return list(listed.missing(Path(folder)))

    def test_accepts_a_source_and_a_test_class(self):
        self.assertEqual(self.missing("driftbox_library(one SOURCES TestOne.cpp)\n"), [])
        self.assertEqual(self.missing("driftbox_tests(one TESTS TestOne)\n"), [])

    def test_refuses_a_source_that_is_not_listed(self):
        self.assertEqual(self.missing("driftbox_tests(one TESTS TestTwo)\n"),
                         ["tests/unit/TestOne.cpp"])


class Words(unittest.TestCase):
    def assert_refused(self, suffix, text):
        self.assertEqual(len(list(words.complaints("name", suffix, text))), 1)

    def test_accepts_ordinary_text(self):
        text = "using namespace std::chrono_literals;\nits pictures lie in resources/home/icons\n"
        self.assertEqual(list(words.complaints("name", ".cpp", text)), [])

    def test_refuses_leftovers(self):
        self.assert_refused(".cpp", "// " + "TO" + "DO: later\n")
        self.assert_refused(".cpp", "qDebug() << x;\n")
        self.assert_refused(".h", "using namespace std;\n")
        self.assert_refused(".md", "see /" + "home/me/x\n")
        self.assert_refused(".cpp", "QTest::qWait(100);\n")

    def test_accepts_an_explained_delay(self):
        text = "QTest::qWait(100); // nothing may happen meanwhile\n"
        self.assertEqual(list(words.complaints("name", ".cpp", text)), [])

    def test_refuses_a_file_that_has_grown_too_long(self):
        self.assert_refused(".h", "\n" * 166)
        self.assert_refused(".cpp", "\n" * 331)


if __name__ == "__main__":
    unittest.main()
