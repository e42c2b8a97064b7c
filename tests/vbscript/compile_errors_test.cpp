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
    {"If n > 1 Then\n  n = 2 End If", 2, 8, 1042, "Must be first statement on the line"},
    {"If n > 1 Then\n  n = 2\nElse End If", 3, 5, 1024, "Expected statement"},
    {"While n < 3\n  n = 1 End While", 2, 8, 1024, "Expected statement"},
    {"While n < 3\n  n = 1 Wend", 2, 8, 1025, "Expected end of statement"},
    {"Do\n  n = 1 Loop While n < 3", 2, 8, 1025, "Expected end of statement"},
    {"Select Case n\n  Case 1\n    n = 2 End Select", 3, 10, 1042, "Must be first statement on the line"},
    {"Class K End Class", 1, 8, 1024, "Expected statement"},
    {"Foo(\"a\", \"b\")", 1, 13, 1044, "Cannot use parentheses when calling a Sub"},
    {"n = \"abc\n", 1, 8, 1033, "Unterminated string constant"},
    {"If n = 1 Then\n  n = 2\n", 3, 0, 1014, "Expected 'End'"},
    {"Function F()\n  F = 1\n", 3, 0, 1014, "Expected 'End'"},
    {"Select Case n\nCase 1\n", 3, 0, 1014, "Expected 'End'"},
    {"With o\nn = 1\n", 3, 0, 1014, "Expected 'End'"},
    {"While n < 3\nn = 1\n", 3, 0, 1018, "Expected 'Wend'"},
    {"Do\nn = 1\n", 3, 0, 1019, "Expected 'Loop'"},
    {"For i = 1 To 3\nn = i\n", 3, 0, 1020, "Expected 'Next'"},
    {"If n = 1\n  n = 2\nEnd If", 1, 8, 1017, "Expected 'Then'"},
    {"Select n\nEnd Select", 1, 7, 1021, "Expected 'Case'"},
    {"For i = 1 x 9\nNext", 1, 10, 1013, "Expected 'To'"},
    {"For Each v = a\nNext", 1, 11, 1046, "Expected 'In'"},
    {"Do For\nLoop", 1, 3, 1028, "Expected 'While', 'Until' or end of statement"},
    {"Const k\n", 1, 7, 1011, "Expected '='"},
    {"Const k = 2 + 3\n", 1, 15, 1045, "Expected literal constant"},
    {"Dim Then", 1, 4, 1010, "Expected identifier"},
    {"Dim a(\"x\")", 1, 6, 1026, "Expected integer constant"},
    {"Dim a(-1)", 1, 6, 1026, "Expected integer constant"},
    {"Function F)\nEnd Function", 1, 10, 1005, "Expected '('"},
    {"n = (1 + 2\n", 1, 10, 1006, "Expected ')'"},
    {"n = 2e999\n", 1, 9, 1031, "Invalid number"},
    {"n = @2", 1, 4, 1032, "Invalid character"},
    {"n = 1; m = 2", 1, 5, 1032, "Invalid character"},
    {"n = 1 _x", 1, 7, 1032, "Invalid character"},
    {"Dim na\xc3\xaf"
     "ve",
     1, 6, 1032, "Invalid character"},
    {"Dim _x", 1, 4, 1032, "Invalid character"},
    {"Dim [[abc]]", 1, 10, 1032, "Invalid character"},
    {"Dim [abc\n", 1, 8, 1007, "Expected ']'"},
    {"n = #1/2/2024\n", 1, 4, 1002, "Syntax error"},
    {"n = #foo#", 1, 4, 1002, "Syntax error"},
    {"n = &H123456789", 1, 4, 1002, "Syntax error"},
    {"Loop", 1, 0, 1038, "'loop' without 'do'"},
    {"Next", 1, 0, 1055, "Unexpected 'Next'"},
    {"End If", 1, 0, 1024, "Expected statement"},
    {"Else", 1, 0, 1024, "Expected statement"},
    {"Wend", 1, 0, 1024, "Expected statement"},
    {"Exit For", 1, 5, 1039, "Invalid 'exit' statement"},
    {"If n = 1 Then\n  n = 2\nEnd With", 3, 4, 1012, "Expected 'If'"},
    {"Function F()\nEnd Sub", 2, 4, 1015, "Expected 'Function'"},
    {"Sub S()\nEnd Function", 2, 4, 1016, "Expected 'Sub'"},
    {"Select Case n\n  Case 1\nEnd If", 3, 4, 1022, "Expected 'Select'"},
    {"With o\nEnd Sub", 2, 4, 1029, "Expected 'With'"},
    {"Class K\nEnd Sub", 2, 4, 1047, "Expected 'Class'"},
    {"Class K\n  Property Get P()\n  End Sub\nEnd Class", 3, 6, 1050, "Expected 'Property'"},
    {"Property Get P\nEnd Property", 1, 9, 1048, "Must be defined inside a Class"},
    {"Class K\nProperty P\nEnd Property\nEnd Class", 2, 9, 1049, "Expected Let or Set or Get in property declaration"},
    {"Class K\nSub Class_Initialize(x)\nEnd Sub\nEnd Class", 2, 23, 1053,
     "Class initialize or terminate do not have arguments"},
    {"Class K\nProperty Let P\nEnd Property\nEnd Class", 2, 14, 1054,
     "Property set or let must have at least one argument"},
    {"Class K\nProperty Get P\nEnd Property\nProperty Let P(a, b)\nEnd Property\nEnd Class", 4, 20, 1051,
     "Number of arguments must be consistent across properties specification"},
    {"Class K\nDefault Private Function F()\nEnd Function\nEnd Class", 2, 0, 1057,
     "'Default' specification must also specify 'Public'"},
    {"Class K\n  Public Default Property Let P(v)\n  End Property\nEnd Class", 2, 26, 1058,
     "'Default' specification can only be on Property Get"},
    {"Class K\n  Public Default Function F()\n  End Function\n  Public Default Function G()\n  End Function\nEnd Class",
     4, 17, 1052, "Cannot have multiple default property/method in a Class"},
    {"Class K\n  Sub T()\n    Set Me = Nothing\n  End Sub\nEnd Class", 3, 11, 1037, "Invalid use of 'Me' keyword"},
    {"For o.x = 1 To 3\nNext", 1, 8, 1040, "Invalid 'for' loop control variable"},
    {"For Each o.x In a\nNext", 1, 13, 1040, "Invalid 'for' loop control variable"},
    {"Dim a\nDim a", 2, 4, 1041, "Name redefined"},
    {"Const A = 1, A = 2", 1, 13, 1041, "Name redefined"},
    {"Dim Foo\nFunction Foo()\nEnd Function", 2, 9, 1041, "Name redefined"},
    {"Function Foo()\nEnd Function\nDim Foo", 3, 4, 1041, "Name redefined"},
    {"Sub Foo()\nEnd Sub\nClass Foo\nEnd Class", 3, 6, 1041, "Name redefined"},
    {"Class K\n    Sub Foo\n    End Sub\n    Sub Foo\n    End Sub\nEnd Class", 4, 8, 1041, "Name redefined"},
    {"Function Foo()\nEnd Function\nFunction Foo()\nEnd Function", 0, 0, 0, ""},
    {"Function A()\nFunction B()\nEnd Function\nEnd Function", 2, 0, 1002, "Syntax error"},
    {"For i = 1 To 2\nSub S()\nEnd Sub\nNext", 2, 0, 1002, "Syntax error"},
    {"Sub S\nClass C\nEnd Class\nEnd Sub", 2, 0, 1002, "Syntax error"},
    {"n = 1\nOption Explicit", 2, 0, 1024, "Expected statement"},
    {"GoTo Done", 1, 0, 1024, "Expected statement"},
    {"n = ", 1, 4, 1002, "Syntax error"},
    {"n = 1 + ", 1, 8, 1002, "Syntax error"},
    {"n = 1 2", 1, 6, 1025, "Expected end of statement"},
    {"n = \"a\" b", 1, 8, 1025, "Expected end of statement"},
    {"Sub 5\nEnd Sub", 1, 4, 1010, "Expected identifier"},
    {"n = obj.", 1, 8, 1010, "Expected identifier"},
    {"If n = 1 Then Foo Else Bar", 1, 18, 1002, "Syntax error"},
    {"n = [QV_SUBJECT]", 0, 0, 0, ""},
};

std::string LineOf(const std::string& text, int line) {
  std::size_t start = 0;
  for (int i = 1; i < line; ++i) start = text.find('\n', start) + 1;
  return text.substr(start, text.find('\n', start) - start);
}

TEST(CompileErrors, AreReportedWhereTheyStand) {
  for (const FaultyScript& row : kScripts) {
    Engine engine({});
    const auto error = engine.Check(row.script);
    ASSERT_EQ(error.has_value(), row.number != 0) << row.script;
    if (!error) continue;
    EXPECT_EQ(error->number, row.number) << row.script;
    EXPECT_EQ(error->description, row.description) << row.script;
    EXPECT_EQ(error->line, row.line) << row.script;
    EXPECT_EQ(error->column, row.column) << row.script;
    EXPECT_EQ(error->source, "Microsoft VBScript compilation error") << row.script;
    EXPECT_EQ(error->text, LineOf(row.script, row.line)) << row.script;
  }
}

TEST(CompileErrors, LeaveNothingRunAndNothingDefined) {
  const Outcome outcome = RunScript("Print 1\nx = \n");
  EXPECT_EQ(outcome.printed, "");
  ASSERT_TRUE(outcome.error);
  Engine engine({});
  EXPECT_TRUE(engine.AddCode("Function F()\nF = 1\nEnd Function\nx = "));
  const auto error = engine.AddCode("y = F()");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, 13);
}

TEST(CompileErrors, ALongNameIsRefusedBehindIt) {
  Engine engine({});
  EXPECT_FALSE(engine.Check("Dim " + std::string(255, 'a')));
  const auto error = engine.Check("Dim " + std::string(256, 'a'));
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, 1030);
  EXPECT_EQ(error->line, 1);
  EXPECT_EQ(error->column, 260);
}

TEST(CompileErrors, TheTextKeepsItsLeadingBlanks) {
  Engine engine({});
  const auto error = engine.Check("x = 1\r\n\t  y = @\r\nz = 2");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->text, "\t  y = @");
  EXPECT_EQ(error->line, 2);
  EXPECT_EQ(error->column, 7);
}

TEST(CompileErrors, BracketsAndClashesAreTheHostsChoice) {
  EngineOptions options;
  options.bracketed_names = false;
  options.procedures_clash = true;
  Engine engine(options);
  const auto bracket = engine.Check("x = 1\ny = [QV_SUBJECT]");
  ASSERT_TRUE(bracket);
  EXPECT_EQ(bracket->number, 1032);
  EXPECT_EQ(bracket->line, 2);
  EXPECT_EQ(bracket->column, 4);
  const auto clash =
      engine.Check("Function CriteriaMet(a, b)\nEnd Function\nFunction CriteriaMet(InVal1,InVal2)\nEnd Function\n");
  ASSERT_TRUE(clash);
  EXPECT_EQ(clash->number, 1041);
  EXPECT_EQ(clash->line, 3);
  EXPECT_EQ(clash->column, 9);
}

}  // namespace
}  // namespace qv::vbscript
