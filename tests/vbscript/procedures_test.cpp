#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Procedures, Forms) {
  constexpr ScriptRow kRows[] = {
      {"Sub S() x = 1\nPrint x\nEnd Sub\nS", "1\n"},
      {"Sub S x = 1\nEnd Sub", "[1005 at 1:6]"},
      {"Sub S : Print 1 : End Sub\nS", "1\n"},
      {"Sub S\nx = 1 End Sub\nS\nPrint 2", "2\n"},
      {"Function F\nF = 3 End Function\nPrint F", "3\n"},
      {"Public Sub S\nPrint 1\nEnd Sub\nPrivate Function F\nF = 2\nEnd Function\nS\nPrint F", "1\n2\n"},
      {"Function F\nEnd Function\nPrint IsEmpty(F())", "True\n"},
      {"Function F(n)\nF = 1\nF = F + n\nEnd Function\nPrint F(4)", "5\n"},
      {"Function F(n)\nIf n = 0 Then\nF = 0\nElse\nF = n + F(n - 1)\nEnd If\nEnd Function\nPrint F(4)", "10\n"},
      {"Function F()\nStatic_n = 1\nIf g < 3 Then\ng = g + 1\nF = F()\nElse\nF = g\nEnd If\nEnd Function\ng = 0\nPrint "
       "F()",
       "3\n"},
      {"Function F()\nSet F = New RegExp\nEnd Function\nPrint TypeName(F())", "IRegExp2\n"},
      {"Function F(a)\nEnd Function\nx = F()", "[450 at 3:0]"},
      {"x = Len()", "[450 at 1:0]"},
      {"x = Len(1, 2)", "[450 at 1:0]"},
      {"Function F()\nF = Array(1, Array(2, 3))\nEnd Function\nPrint F()(1)(0)", "2\n"},
      {"Sub S(a())\nPrint a(0)\nEnd Sub\nS Array(4)", "4\n"},
      {"Sub S\nExit Sub\nPrint 1\nEnd Sub\nS\nPrint 2", "2\n"},
      {"Function F\nF = 1\nExit Function\nF = 2\nEnd Function\nPrint F", "1\n"},
  };
  CheckScripts(kRows);
}

TEST(Procedures, Calls) {
  constexpr ScriptRow kRows[] = {
      {"Sub S(a, b)\nPrint a, b\nEnd Sub\nCall S(1, 2)\nS 3, 4", "1 2\n3 4\n"},
      {"Sub S\nPrint 1\nEnd Sub\nCall S\nS\nS()\nCall S()", "1\n1\n1\n1\n"},
      {"Sub S(a, b)\nEnd Sub\nS(1, 2)", "[1044 at 3:7]"},
      {"Sub S(a)\nPrint a\nEnd Sub\nS (2) * 8", "16\n"},
      {"Sub S(a, b)\nPrint a, b\nEnd Sub\nS (2) * 8, 7\nS (2), 7\nS (10) + 5, 1", "16 7\n2 7\n15 1\n"},
      {"Sub S(a)\nPrint a\nEnd Sub\nS(10)+5\nS -1\nS (1) & \"x\"", "15\n-1\n1x\n"},
      {"Sub S(a, b)\nPrint TypeName(a), b\nEnd Sub\nS ,1", "Error 1\n"},
      {"Call 5", "[1010 at 1:5]"},
      {"x = 5\nx", "[13 at 2:0]"},
      {"x = 5\nx 1", "[13 at 2:0]"},
      {"Class K\nPublic Default Sub D(n)\nPrint n\nEnd Sub\nEnd Class\nSet o = New K\no 5\no(6)", "5\n6\n"},
      {"Sub S(n)\nIf n > 0 Then S n - 1\nEnd Sub\nS 100\nPrint 1", "1\n"},
  };
  CheckScripts(kRows);
}

TEST(Procedures, ArgumentsByReference) {
  constexpr ScriptRow kRows[] = {
      {"Sub Inc(n)\nn = n + 1\nEnd Sub\nx = 1\nInc x\nPrint x", "2\n"},
      {"Sub Inc(ByVal n)\nn = n + 1\nEnd Sub\nx = 1\nInc x\nPrint x", "1\n"},
      {"Sub Inc(ByRef n)\nn = n + 1\nEnd Sub\nx = 1\nInc (x)\nPrint x\nCall Inc((x))\nPrint x\nCall Inc(x)\nPrint x",
       "1\n1\n2\n"},
      {"Sub Inc(n)\nn = n + 1\nEnd Sub\na = Array(1, 2)\nInc a(1)\nPrint a(1)", "3\n"},
      {"Sub Inc(n)\nn = n + 1\nEnd Sub\nDim a(1, 1)\na(1, 0) = 4\nInc a(1, 0)\nPrint a(1, 0)", "5\n"},
      {"Sub A(n)\nB n\nEnd Sub\nSub B(n)\nn = 9\nEnd Sub\nx = 1\nA x\nPrint x", "9\n"},
      {"Sub A(n)\nB n\nEnd Sub\nSub B(n)\nn = 9\nEnd Sub\nv = Array(1)\nA v(0)\nPrint v(0)", "9\n"},
      {"Class K\nPublic f\nEnd Class\nSub Inc(n)\nn = n + 1\nEnd Sub\nSet o = New K\no.f = 1\nInc o.f\nPrint o.f",
       "1\n"},
      {"Class K\nPublic f\nSub T\nInc f\nEnd Sub\nEnd Class\nSub Inc(n)\nn = n + 1\nEnd Sub\nSet o = New K\no.f = "
       "1\no.T\n"
       "Print o.f",
       "2\n"},
      {"Sub Swap(a, b)\nt = a\na = b\nb = t\nEnd Sub\nx = 1\ny = 2\nSwap x, y\nPrint x, y", "2 1\n"},
      {"Function F(n)\nn = n * 2\nF = n\nEnd Function\nx = 3\ny = x + F(x)\nPrint y, x", "9 6\n"},
  };
  CheckScripts(kRows);
  EXPECT_EQ(Told("Dim a()\nReDim a(2)\nSub S(n)\nReDim a(5)\nEnd Sub\nS a(1)"), "[10 at 4:0]");
}

TEST(Procedures, Depth) {
  EXPECT_EQ(Told("Function D(n)\nIf n = 0 Then D = 0 Else D = 1 + D(n - 1)\nEnd Function\nPrint D(900)"), "900\n");
  EXPECT_EQ(Told("Sub S\nS\nEnd Sub\nOn Error Resume Next\nS\nPrint Err.Number"), "28\n");
  EXPECT_EQ(Told("Class K\nPublic Default Property Get V\nV = Me & 1\nEnd Property\nEnd Class\nx = 1 & New K"),
            "[28 at 3:0]");
  EXPECT_EQ(Told("x = \"Execute x\"\nExecute x"), "[28 at 1:0]");
}

TEST(Procedures, OnErrorResumeNext) {
  constexpr ScriptRow kRows[] = {
      {"On Error Resume Next\nx = 1 / 0\nPrint Err.Number, Err.Description, Err.Source",
       "11 Division by zero Microsoft VBScript runtime error\n"},
      {"On Error Resume Next\nx = 1 / 0\nOn Error GoTo 0\nPrint Err.Number\nx = 1 / 0", "0\n[11 at 5:0]"},
      {"On Error Resume Next\nx = 1 / 0\nOn Error Resume Next\nPrint Err.Number", "0\n"},
      {"On Error GoTo 1", "[1002 at 1:14]"},
      {"Sub S\nx = 1 / 0\nPrint \"not here\"\nEnd Sub\nOn Error Resume Next\nS\nPrint Err.Number", "11\n"},
      {"Sub S\nOn Error Resume Next\nx = 1 / 0\nPrint \"here\"\nEnd Sub\nS\nx = 1 / 0", "here\n[11 at 7:0]"},
      {"Sub T\nx = 1 / 0\nEnd Sub\nSub S\nT\nPrint \"not here\"\nEnd Sub\nOn Error Resume Next\nS\nPrint \"here\"",
       "here\n"},
      {"On Error Resume Next\nIf 1 / 0 Then\nPrint \"in\"\nElse\nPrint \"else\"\nEnd If\nPrint \"after\"",
       "in\nafter\n"},
      {"On Error Resume Next\nIf False Then\nElseIf 1 / 0 Then\nPrint \"in\"\nEnd If", "in\n"},
      {"On Error Resume Next\nn = 0\nWhile 1 / 0 > n\nPrint \"in\"\nn = n + 1\nIf n = 2 Then Err.Clear : On Error GoTo "
       "0\nWend",
       "in\nin\n[11 at 3:0]"},
      {"On Error Resume Next\nDo While 1 / 0\nPrint \"in\"\nExit Do\nLoop", "in\n"},
      {"On Error Resume Next\nDo\nPrint \"in\"\nLoop While 1 / 0\nPrint \"after\"", "in\nafter\n"},
      {"On Error Resume Next\nDo\nPrint \"in\"\nLoop Until 1 / 0\nPrint \"after\"", "in\nafter\n"},
      {"On Error Resume Next\nSelect Case 1 / 0\nCase 1\nPrint 1\nCase Else\nPrint 2\nEnd Select\nPrint \"after\"",
       "after\n"},
      {"On Error Resume Next\nSelect Case 5\nCase 1\nPrint 1\nCase 1 / 0\nPrint 2\nCase Else\nPrint 3\nEnd Select",
       "2\n"},
      {"On Error Resume Next\nx = 7\nFor x = 1 / 0 To 5\nPrint \"in\", x\nNext\nPrint Err.Number, x", "in 7\n92 7\n"},
      {"On Error Resume Next\nx = 7\nFor x = 1 To 1 / 0\nPrint \"in\", x\nNext\nPrint Err.Number, x", "in 7\n92 7\n"},
      {"On Error Resume Next\nFor Each x In 1 / 0\nPrint \"in\"\nNext\nPrint Err.Number", "in\n451\n"},
      {"On Error Resume Next\nWith 1 / 0\nPrint \"in\"\n.x = 1\nEnd With\nPrint Err.Number", "in\n424\n"},
      {"On Error Resume Next\nx = 1\nx = 2 + y.z\nPrint x", "1\n"},
      {"On Error Resume Next\nErr.Raise 5\nErr.Clear\nPrint Err.Number, Err.Description", "0 \n"},
  };
  CheckScripts(kRows);
}

TEST(Procedures, ExecutedTexts) {
  constexpr ScriptRow kRows[] = {
      {"Execute \"x = 5\"\nPrint x", "5\n"},
      {"Sub S\nExecute \"x = 5 : Print x\"\nExecute \"Print x + 1\"\nEnd Sub\nS\nPrint IsEmpty(x)", "5\n6\nTrue\n"},
      {"Sub S\nDim n\nn = 1\nExecute \"n = n + 1\"\nPrint n\nEnd Sub\nS", "2\n"},
      {"Sub S(n)\nExecute \"n = n + 1\"\nEnd Sub\nx = 1\nS x\nPrint x", "2\n"},
      {"Sub S\nExecuteGlobal \"y = 5\"\nEnd Sub\nS\nPrint y", "5\n"},
      {"ExecuteGlobal \"Function F\" & vbLf & \"F = 4\" & vbLf & \"End Function\"\nPrint F()", "4\n"},
      {"Function F\nExecute \"F = 6\"\nEnd Function\nPrint F", "6\n"},
      {"Print Eval(\"1 + 2\"), Eval(\"1 = 2\")", "3 False\n"},
      {"Sub S\nDim n\nn = 3\nPrint Eval(\"n * 2\")\nEnd Sub\nS", "6\n"},
      {"Print Eval(5)", "5\n"},
      {"Execute 5", "[13 at 1:0]"},
      {"ExecuteGlobal 5", "[13 at 1:0]"},
      {"x = Eval(Nothing)", "[91 at 1:0]"},
      {"x = Eval(New RegExp)", "[438 at 1:0]"},
      {"On Error Resume Next\nExecute \"x = \"\nPrint Err.Number, Err.Source",
       "1002 Microsoft VBScript compilation error\n"},
      {"Class K\nPrivate v\nSub T\nv = 3\nExecute \"v = v + 1 : Print v\"\nEnd Sub\nEnd Class\nSet o = New K\no.T",
       "4\n"},
      {"Sub S\nExecute \"Dim a(2) : a(1) = 5\"\nExecute \"Print a(1)\"\nEnd Sub\nS", "5\n"},
      {"Sub S\nPrint \"S\"\nEnd Sub\nSet r = GetRef(\"S\")\nr\nCall r", "S\nS\n"},
      {"Function F(a)\nF = a * 2\nEnd Function\nSet r = GetRef(\"f\")\nPrint r(4)", "8\n"},
      {"Set r = GetRef(\"nope\")", "[5 at 1:0]"},
      {"Set r = GetRef(\"\")", "[5 at 1:0]"},
      {"Set r = GetRef(5)", "[13 at 1:0]"},
      {"Stop\nPrint 1", "1\n"},
      {"Randomize\nRandomize 5\nPrint 1", "1\n"},
      {"x = Randomize(1)", "[13 at 1:0]"},
  };
  CheckScripts(kRows);
}

TEST(Procedures, StatementsThatAreConversions) {
  for (const char* name : {"CInt", "CLng", "CDbl", "CSng", "CByte", "CCur", "CDate"}) {
    EXPECT_EQ(Told(std::string("Call ") + name + "(1)"), "[458 at 1:0]") << name;
    EXPECT_EQ(Told(std::string("Call ") + name + "(\"x\")"), "[13 at 1:0]") << name;
  }
  EXPECT_EQ(Told("Call CStr(1)\nPrint 1"), "1\n");
}

}  // namespace
}  // namespace qv::vbscript
