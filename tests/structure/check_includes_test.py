#!/usr/bin/env python3
"""What check_includes.py finds in small trees."""

import contextlib
import io
import os
import sys
import tempfile
import unittest
from unittest import mock

import check_includes

COMPONENT = "sdkengine/src/app/map/customstyle/"


def found_in(files):
    """What the check prints of a tree, given as a text for each path, and whether it is content."""
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write(text)
        output = io.StringIO()
        with mock.patch.object(sys, "argv", ["check_includes.py", root]), contextlib.redirect_stdout(output):
            try:
                check_includes.main()
            except SystemExit as end:
                return output.getvalue(), end.code == 0
    raise AssertionError("the check did not end")


class Includes(unittest.TestCase):
    def test_that_are_refused(self):
        for path, included in [
                (COMPONENT + "model/StyleStore.cpp", "customstyle/styling/RecordFields.h"),
                (COMPONENT + "model/StyleStore.cpp", "customstyle/loading/Rules.h"),
                (COMPONENT + "model/StyleStore.cpp", "customstyle/queries/EffectiveStyles.h"),
                (COMPONENT + "styling/ColorStyle.cpp", "customstyle/loading/Rules.h"),
                (COMPONENT + "queries/StyleLookup.cpp", "customstyle/styling/RecordFields.h"),
                (COMPONENT + "queries/StyleLookup.cpp", "stylesnapshot/SnapshotBuilder.h"),
                (COMPONENT + "include/customstyle/CustomConfig.h", "customstyle/model/StyleKey.h"),
                ("engine/dev/inc/vi/vos/VMap.h", "customstyle/CustomConfig.h"),
                ("tools/study/Study.cpp", "customstyle/model/StyleKey.h"),
                ("tools/support/Text.cpp", "customstyle/CustomConfig.h"),
                ("tools/json/Reader.cpp", "tools/study/Study.h"),
                ("tools/study/Study.cpp", "tools/check/Finding.h"),
                ("tools/check/Report.cpp", "tools/explain/Explainer.h"),
                ("tools/explain/Explainer.cpp", "tools/diff/StyleDiff.h"),
                ("tools/check/Report.cpp", "tools/customstyle/Command.h"),
                ("tools/check/Report.cpp", "tests/support/TestStore.h"),
                ("bench/LoadBench.cpp", "tests/support/TestStore.h"),
                ("examples/programs/first.cpp", "customstyle/model/StyleKey.h"),
                ("tests/model/Test.cpp", "fuzz/support/Questions.h"),
        ]:
            with self.subTest(path=path, included=included):
                output, content = found_in({path: f'// first line\n#include "{included}"\n'})
                self.assertFalse(content)
                self.assertIn(f"{path}:2: ", output)
                self.assertIn(included, output)

    def test_that_are_allowed(self):
        for path, included in [
                (COMPONENT + "loading/StyleRules.cpp", "customstyle/model/Messages.h"),
                (COMPONENT + "styling/ColorStyle.cpp", "customstyle/CustomConfig.h"),
                (COMPONENT + "queries/StyleLookup.cpp", "customstyle/model/StyleKey.h"),
                ("sdkengine/src/app/map/stylesnapshot/SnapshotBuilder.cpp", "customstyle/queries/EffectiveStyles.h"),
                ("engine/dev/src/vi/vos/VMap.cpp", "vi/vos/VMem.h"),
                ("tools/check/Report.cpp", "customstyle/CustomConfig.h"),
                ("tools/check/Report.cpp", "tools/study/Study.h"),
                ("tools/diff/StyleDiff.cpp", "tools/explain/Explainer.h"),
                ("tools/customstyle/main.cpp", "tools/expectations/Expectations.h"),
                ("tests/model/Test.cpp", "customstyle/model/StyleKey.h"),
                ("fuzz/InitFuzzer.cpp", "tests/support/TestStore.h"),
                ("bench/LoadBench.cpp", "tools/study/Study.h"),
        ]:
            with self.subTest(path=path, included=included):
                output, content = found_in({path: f'#include <vector>\n#include "{included}"\n'})
                self.assertTrue(content, output)

    def test_name_their_root(self):
        output, content = found_in({COMPONENT + "model/StyleStore.cpp": '#include "StyleKey.h"\n'})
        self.assertFalse(content)
        self.assertIn("StyleStore.cpp:1: ", output)

    def test_in_angle_brackets_count_too(self):
        _, content = found_in({"bench/LoadBench.cpp": "#include <tests/support/TestStore.h>\n"})
        self.assertFalse(content)

    def test_of_a_new_folder_need_a_line(self):
        for path in ["sdkengine/src/app/map/customstyle/drawing/Draw.cpp", "tools/translate/Translate.cpp", "web/a.h"]:
            with self.subTest(path=path):
                self.assertFalse(found_in({path: ""})[1])

    def test_of_build_trees_do_not_count(self):
        self.assertTrue(found_in({"build/dev/a.cpp": '#include "a.h"\n', "bench/B.cpp": ""})[1])

    def test_of_an_empty_tree_are_a_fault(self):
        self.assertFalse(found_in({"README.md": ""})[1])


if __name__ == "__main__":
    unittest.main()
