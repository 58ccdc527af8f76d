"""The faults that script/mutate makes, on sources of a few lines."""
import importlib.machinery
import importlib.util
import os
import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
PATH = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../script/mutate")
LOADER = importlib.machinery.SourceFileLoader("mutate", PATH)
mutate = importlib.util.module_from_spec(importlib.util.spec_from_loader("mutate", LOADER))
LOADER.exec_module(mutate)


def made(operator, source):
    """The sources that the operator makes of one."""
    return [mutate.with_fault(source, fault) for fault in mutate.faults(source)[operator]]


class Faults(unittest.TestCase):
    def test_comparisons_turn_into_their_neighbours(self):
        self.assertEqual(made("comparisons", "a == b;"), ["a != b;"])
        self.assertEqual(made("comparisons", "a < b;"), ["a <= b;"])
        self.assertEqual(made("comparisons", "f(a) >= b;"), ["f(a) > b;"])
        self.assertEqual(made("comparisons", "p->q; std::vector<int> v; x << 1; template <class T> T f();"), [])

    def test_signs_turn_round(self):
        self.assertEqual(made("signs", "a + b;"), ["a - b;"])
        self.assertEqual(made("signs", "a *= b;"), ["a /= b;"])
        self.assertEqual(made("signs", "++i;"), ["--i;"])
        self.assertEqual(made("signs", "f(-x);"), ["f(x);"])
        self.assertEqual(made("signs", "return -x;"), ["return x;"])
        self.assertEqual(made("signs", "char* p; int& q = *r; a->b;"), [])

    def test_constants_move_by_one(self):
        self.assertEqual(made("constants", "x = 0;"), ["x = 1;"])
        self.assertEqual(made("constants", "x = 1u;"), ["x = 0u;"])
        self.assertEqual(made("constants", "x = 41;"), ["x = 42;"])
        self.assertEqual(made("constants", "x = 0xFF;"), ["x = 0x100;"])
        self.assertEqual(made("constants", "x = 0.0;"), ["x = 1.0;"])
        self.assertEqual(made("constants", "x = 2.5;"), ["x = 3.5;"])
        self.assertEqual(made("constants", "x = true;"), ["x = false;"])
        self.assertEqual(made("constants", "x1 = a2b;"), [])

    def test_conditions_change_their_connection_and_lose_their_not(self):
        self.assertEqual(made("conditions", "if (a && b)"), ["if (a || b)"])
        self.assertEqual(made("conditions", "if (!a)"), ["if (a)"])
        self.assertEqual(made("conditions", "a != b; T&& t;"), [])

    def test_a_statement_on_its_own_line_is_dropped(self):
        self.assertEqual(made("statements", "{\n    f(a);\n}\n"), ["{\n    {}\n}\n"])
        self.assertEqual(made("statements", "if (a)\n    f(a);\n"), ["if (a)\n    {}\n"])
        self.assertEqual(made("statements", "{\nreturn a;\nusing A = B;\n}"), [])
        self.assertEqual(made("statements", "x = f(a,\n  b);\n"), [])

    def test_neighbouring_arguments_change_places(self):
        self.assertEqual(made("arguments", "f(a, b);"), ["f(b, a);"])
        self.assertEqual(made("arguments", "f(a.b, 2, c);"), ["f(2, a.b, c);"])
        self.assertEqual(made("arguments", "f(a, a); void g(int a, int b);"), [])

    def test_nothing_is_broken_in_comments_texts_and_lines_of_the_preprocessor(self):
        source = '#include <a> // 1 == 2\n#define X \\\n  1 + 2\n/* 3 < 4\n 5 */ f("6 \\" && 7", L\'!\', R"x(8 + 9)x");\n'
        for operator, found in mutate.faults(source).items():
            self.assertEqual([source[begin:end] for begin, end, _ in found if operator != "statements"], [], operator)
        self.assertEqual(len(mutate.blanked(source)), len(source))
        self.assertEqual(mutate.blanked(source).count("\n"), source.count("\n"))

    def test_digits_with_separators_are_no_text(self):
        self.assertEqual(made("comparisons", "x = 1'000; a == b; y = 1'000;"), ["x = 1'000; a != b; y = 1'000;"])

    def test_a_seed_decides_the_order_and_every_fault_comes_once(self):
        sources = {"b.cpp": "if (a == 1 && b < 2)\n    f(a, b);\n", "a.cpp": "x = y + 3;\n"}
        first = list(mutate.draw(sources, 7))
        self.assertEqual(first, list(mutate.draw(sources, 7)))
        self.assertEqual(len(first), len({(name, fault) for name, _, fault in first}))
        self.assertEqual(len(first), sum(len(found) for text in sources.values() for found in mutate.faults(text).values()))
        self.assertNotEqual(first, list(mutate.draw(sources, 8)))

    def test_a_fault_is_told_by_its_line(self):
        self.assertEqual(mutate.line_of("one\n  two\nthree", 6), (2, "two"))

    def test_every_folder_has_tests_that_are_there(self):
        root = os.path.join(os.path.dirname(PATH), "..")
        texts = [path.read_text() for path in Path(root, "tests").rglob("CMakeLists.txt")]
        for folder, programs in mutate.TESTS.items():
            self.assertTrue(os.path.isdir(os.path.join(root, folder)), folder)
            for program in programs:
                self.assertTrue(any(f"korvant_test({program} " in text for text in texts), program)
        with_sources = {parent for top in ("korvant", "host") for parent in sorted(os.listdir(os.path.join(root, top))) if os.path.isdir(os.path.join(root, top, parent))}
        self.assertEqual(with_sources - {folder.split("/")[1] for folder in mutate.TESTS}, set(), "a folder that no faults are tried in")


if __name__ == "__main__":
    unittest.main()
