"""The generator and the checks of the export list tell a good list or library from a bad one."""
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import exports  # noqa: E402

LIST = "# comment\nfoo\tcore/a.h\tfunction\tint foo();\n___bar\tcore/a.h\tdata\textern const double ___bar;\n"


def parsed(text):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "exports.tsv"
        path.write_text(text, encoding="utf-8")
        return exports.read_list(path)


class ExportsTest(unittest.TestCase):
    def test_reads_the_list(self):
        self.assertEqual([e.name for e in parsed(LIST)], ["foo", "___bar"])

    def test_refuses_broken_lists(self):
        for text in ("foo\tcore/a.h\tfunction\n", "foo\tcore/a.h\tmacro\tint foo(void);\n",
                     "foo\tcore/a.h\tfunction\tint goo(void);\n", LIST + LIST):
            with self.assertRaises(SystemExit):
                parsed(text)

    def test_version_script_hides_the_rest(self):
        text = exports.version_script(parsed(LIST))
        self.assertIn("    foo;\n    ___bar;\n  local:\n    *;\n", text)
        self.assertNotIn("global", exports.version_script([]))

    def test_module_definition_marks_data(self):
        text = exports.module_definition(parsed(LIST))
        self.assertIn("    foo\n", text)
        self.assertIn("    ___bar DATA\n", text)

    def test_declarations(self):
        text = exports.declarations(parsed(LIST))
        self.assertIn('#include "nuv64/core/a.h"\n', text)
        self.assertIn("int foo(void) NUV64_NOEXCEPT;\n", text)
        self.assertIn("extern const double ___bar;\n", text)

    def test_reads_symbol_tables(self):
        self.assertEqual(exports.names_of_elf("0000 T foo\n0010 R ___bar@@V1\n"), {"foo", "___bar"})
        dll = ("x\n[Ordinal/Name Pointer] Table\n\t[   0] ___bar\n\t[   1] foo\n\n"
               "The Function Table\n\t[   9] other\n")
        self.assertEqual(exports.names_of_dll(dll), {"foo", "___bar"})

    def test_an_untested_export_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder)
            (path / "a_test.cpp").write_text("EXPECT_EQ(foo(), ___bar);")
            exports.check_tested(parsed(LIST), path)
            (path / "a_test.cpp").write_text("EXPECT_EQ(foo(), ___bars);")
            with self.assertRaises(SystemExit):
                exports.check_tested(parsed(LIST), path)


if __name__ == "__main__":
    unittest.main()
