#include <gtest/gtest.h>

#include <string>

#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

struct FaultyScript {
  const char* script;
  int line;
  int column;
  int number;  // 0 for a script that is none
  const char* description;
};

constexpr FaultyScript kScripts[] = {
    {"Option Explicit\nz = 1", 2, 0, 500, "Variable is undefined: 'z'"},
    {"n = 1\nn = n \\ 0", 2, 0, 11, "Division by zero"},
    {"Dim x\nIf True Then x = 1 / 0", 2, 13, 11, "Division by zero"},
    {"Sub S\n  n = 1 / 0\nEnd Sub\nS", 2, 2, 11, "Division by zero"},
    {"n = Foo(1)", 1, 0, 13, "Type mismatch: 'Foo'"},
    {"Foo 1", 1, 0, 13, "Type mismatch: 'Foo'"},
    {"n = CStr(Null)", 1, 0, 94, "Invalid use of Null: 'CStr'"},
    {"n = CInt(\"abc\")", 1, 0, 13, "Type mismatch: 'CInt'"},
    {"n = CInt(40000)", 1, 0, 6, "Overflow: 'CInt'"},
    {"n = Left(\"a\", -1)", 1, 0, 5, "Invalid procedure call or argument: 'Left'"},
    {"n = Mid(\"a\", 0)", 1, 0, 5, "Invalid procedure call or argument: 'Mid'"},
    {"n = \"abc\" + 1", 1, 0, 13, "Type mismatch: '[string: \"abc\"]'"},
    {"a = Array(1)\nn = a(5)", 2, 0, 9, "Subscript out of range: '[number: 5]'"},
    {"Set o = 5", 1, 0, 424, "Object required: '[number: 5]'"},
    {"n = o.Name", 1, 0, 424, "Object required: 'o'"},
    {"Set o = Nothing\no.Go", 2, 0, 424, "Object required: 'o'"},
    {"n = Nothing", 1, 0, 91, "Object variable not set"},
    {"Set r = New RegExp\nr.Nope", 2, 0, 438, "Object doesn't support this property or method: 'r.Nope'"},
    {"Set o = CreateObject(\"A.B\")", 1, 0, 429, "ActiveX component can't create object: 'A.B'"},
    {"Const K = 1\nK = 2", 2, 0, 501, "Illegal assignment: 'K'"},
    {"Sub S(a)\nEnd Sub\nS", 3, 0, 450, "Wrong number of arguments or invalid property assignment: 'S'"},
    {"Sub S\n  S\nEnd Sub\nS", 2, 2, 28, "Out of stack space: 'S'"},
    {"For Each v In 3\nNext", 1, 0, 451, "Object not a collection"},
    {"With 3\nEnd With", 1, 0, 424, "Object required: '[number: 3]'"},
    {".x = 1", 1, 0, 505, "Invalid or unqualified reference"},
    {"Dim a(2)\nReDim a(3)", 2, 0, 10, "This array is fixed or temporarily locked"},
    {"Set o = New Foo", 1, 0, 500, "Variable is undefined: 'Foo'"},
    {"n = (\"\" = 5)", 1, 0, 13, "Type mismatch: '[string: \"\"]'"},
    {"n = Join(3)", 1, 0, 13, "Type mismatch: 'Join'"},
    {"Err.Raise 1000", 1, 0, 1000, "Unknown runtime error"},
    {"MsgBox \"x\"", 1, 0, 70, "Permission denied: 'MsgBox'"},
};

TEST(RuntimeErrors, AreReportedAtTheStatement) {
  for (const FaultyScript& row : kScripts) {
    const Outcome outcome = RunScript(row.script);
    ASSERT_TRUE(outcome.error) << row.script;
    EXPECT_EQ(outcome.error->number, row.number) << row.script;
    EXPECT_EQ(outcome.error->description, row.description) << row.script;
    EXPECT_EQ(outcome.error->line, row.line) << row.script;
    EXPECT_EQ(outcome.error->column, row.column) << row.script;
    EXPECT_EQ(outcome.error->source, "Microsoft VBScript runtime error") << row.script;
    EXPECT_EQ(outcome.error->text, "") << row.script;
  }
}

}  // namespace
}  // namespace qv::vbscript
