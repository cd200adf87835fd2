"""Holds mutants.py against sources whose changes are known."""
import unittest

import mutants


def changes(source):
    return [site.change(choice) for site in mutants.find_sites('a.cpp', source) for choice in site.choices]


class Sites(unittest.TestCase):
    def test_comparisons_logic_and_arithmetic(self):
        self.assertEqual(changes('bool f(int a, int b) { return a < b && a == b || a + b; }'),
                         ['< -> <=', '< -> >=', '&& -> ||', '== -> !=', '|| -> &&', '+ -> -'])

    def test_constants_in_their_own_manner_of_writing(self):
        self.assertEqual(changes('int a = 0; auto b = 0x10u; bool c = true;'),
                         ['0 -> 1', '0x10u -> 17u', '0x10u -> 15u', 'true -> false'])

    def test_conditions_and_statements(self):
        self.assertEqual(changes('void f() { if (a) g(a); while (!b) { c = d; } }'),
                         ['a -> !(a)', 'g(a); -> ;', '!b -> !(!b)', '! -> (nothing)', 'c = d; -> ;'])

    def test_a_condition_that_declares_stays_whole(self):
        self.assertEqual(changes('void f() { if (auto* p = q) return; }'), [])

    def test_nothing_in_comments_texts_preprocessor_lines_or_assertions(self):
        self.assertEqual(changes('#define A 1 + \\\n  2\n// 1 + 1\n/* 1 */ auto t = L"1 + 1"; auto r = R"x(1 " 2)x";\n'
                                 "char c = '1';\nstatic_assert(sizeof(int) == 4);\n"), [])

    def test_signs_of_types_are_no_operators(self):
        self.assertEqual(changes('template <int N = 3> void f(std::vector<int>&& a, const T& b, char* c, T::*d) {}'), [])

    def test_declarations_stay(self):
        self.assertEqual(changes('struct S { int a; void g(); }; namespace { CRect box(rect); }\n'
                                 'void f() { CRect box(rect); CString text; const int k = g(); return; }'), [])

    def test_calls_within_lambdas_and_branches(self):
        self.assertEqual(changes('void f() { h([&] { g(); }); if (a) x->y(b)[c] = d; else ++*e; }'),
                         ['h([&] { g(); }); -> ;', 'g(); -> ;', 'a -> !(a)', 'x->y(b)[c] = d; -> ;',
                          '++ -> --', '++*e; -> ;'])

    def test_the_lines_of_the_statement(self):
        site, = mutants.find_sites('a.cpp', 'void f()\n{\n    g(\n        a +\n        b);\n}\n')[1:] or [None]
        self.assertEqual((site.line, site.lines, site.old), (4, (3, 5), '+'))

    def test_mutated_text(self):
        source = 'int f()\n{\n    return 1 +\n           2;\n}\n'
        site = next(site for site in mutants.find_sites('a.cpp', source) if site.old == '+')
        self.assertEqual(mutants.mutated(source, site, '-'), 'int f()\n{\n    return 1 -\n           2;\n}\n')
        self.assertEqual(mutants.before_and_after(source, site, '-'), ('return 1 +', 'return 1 -'))


if __name__ == '__main__':
    unittest.main()
