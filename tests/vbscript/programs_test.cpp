#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Programs, ExecutedTexts) {
  constexpr ScriptRow kRows[] = {
      {"Execute \"x = \"", "[1002 at 1:4]"},
      {"x = 1\nExecute \"Print 1\" & vbLf & \"y = 1/0\"", "1\n[11 at 2:0]"},
      {"Print Eval(\"1 +\")", "[1002 at 1:3]"},
      {"Print Eval(\"\")", "[1002 at 1:0]"},
      {"Print Eval(\"x = 5\")", "False\n"},
      {"Execute \"\"", ""},
      {"Execute \"Sub S\" & vbLf & \"Print 3\" & vbLf & \"End Sub\"\nS", "3\n"},
      {"Execute Null", "[13 at 1:0]"},
      {"Execute Nothing", "[91 at 1:0]"},
      {"Print Eval(Null)", "Null\n"},
      {"Set f = GetRef(\"S\")\nSub S(a)\nPrint a\nEnd Sub\nf 5\nf(6)", "5\n6\n"},
      {"Function F(x)\nF = x * 2\nEnd Function\nSet g = GetRef(\"F\")\nPrint g(4), TypeName(g)", "8 Object\n"},
      {"x = 5\nSet g = GetRef(\"x\")", "[5 at 2:0]"},
      {"Sub S\nExecute \"y = 5\"\nPrint y\nEnd Sub\nS\nPrint IsEmpty(y)", "5\nTrue\n"},
      {"Sub S\nExecute \"Dim y : y = 5\"\nPrint y\nEnd Sub\nS", "5\n"},
      {"Sub S\nExecute \"Sub P : Print 3 : End Sub\"\nP\nEnd Sub\nS\nP", "3\n[13 at 6:0]"},
      {"Sub S\nExecute \"Sub P : Print 3 : End Sub : P\"\nExecute \"P\"\nEnd Sub\nS\nS", "3\n3\n3\n3\n"},
      {"Sub S\nExecute \"Function P(a) : P = a + 1 : End Function\"\nPrint P(3), Eval(\"P(4)\")\nx = P(5)\nPrint "
       "x\nEnd Sub\nS",
       "4 5\n6\n"},
      {"Sub S\nExecute \"Function P(n)\" & vbLf & \"If n > 0 Then P = P(n - 1) + 1 Else P = 0\" & vbLf & \"End "
       "Function\"\nPrint P(3)\nEnd Sub\nS",
       "3\n"},
      {"Sub S\nExecuteGlobal \"Sub P : Print 3 : End Sub\"\nEnd Sub\nS\nP", "3\n"},
      {"Execute \"Sub P : Print 3 : End Sub\"\nP", "3\n"},
      {"X = \"Global\"\nSub Proc1\nDim X\nX = \"Local\"\nExecute \"Sub Proc2: Print X: End Sub\"\nPrint "
       "Eval(\"X\")\nProc2\nEnd Sub\nProc1\nProc2",
       "Local\nGlobal\n[13 at 10:0]"},
      {"Execute New RegExp", "[438 at 1:0]"},
      {"ExecuteGlobal Nothing", "[91 at 1:0]"},
      {"Class K\nPublic Default Function V\nV = \"Print 7\"\nEnd Function\nEnd Class\nExecute New K", "7\n"},
  };
  CheckScripts(kRows);
}

TEST(Programs, Arrays) {
  constexpr ScriptRow kRows[] = {
      {"Dim a(3)\na(4) = 1", "[9 at 2:0]"},
      {"Dim a(3)\nx = a(-1)", "[9 at 2:0]"},
      {"Dim a(3)\na(\"x\") = 1", "[13 at 2:0]"},
      {"Dim a(3)\na(1.5) = 7\nPrint a(2)", "7\n"},
      {"Dim a(3)\na(Null) = 1", "[94 at 2:0]"},
      {"Dim a(3)\na = 5\nPrint a", "5\n"},
      {"Dim a(1,1)\nPrint UBound(a,3)", "[9 at 2:0]"},
      {"Dim a()\na(0) = 1", "[9 at 2:0]"},
      {"Dim a()\nPrint IsArray(a), TypeName(a)", "True Variant()\n"},
      {"ReDim a(2)\na(0)=1\nReDim Preserve a(0)\nPrint UBound(a), a(0)", "0 1\n"},
      {"ReDim a(-2)", "[9 at 1:0]"},
      {"ReDim a(1.5)\nPrint UBound(a)", "2\n"},
      {"ReDim a(Null)", "[94 at 1:0]"},
      {"Dim a\nReDim Preserve a(3)\nPrint UBound(a)", "3\n"},
      {"ReDim a(1), b(2)\nPrint UBound(a), UBound(b)", "1 2\n"},
      {"a = Array(1,2)\nReDim Preserve a(3)\nPrint a(1), IsEmpty(a(3))", "2 True\n"},
      {"a = Array(3,1)\na(0) = a\nPrint a(0)(1)", "1\n"},
      {"Dim a(2)\nb = a\nb(0) = 1\nPrint IsEmpty(a(0))", "True\n"},
      {"Dim a(2)\nErase a\nPrint UBound(a)", "2\n"},
      {"a = Array(1)\nErase a\nPrint UBound(a)", "[9 at 3:0]"},
      {"a = Array(1)\nx = a + 1", "[13 at 2:0]"},
      {"a = Array(1)\nx = a & \"\"", "[13 at 2:0]"},
      {"a = Array(1)\nIf a Then Print 1", "[13 at 2:0]"},
      {"a = Array(1)\nx = -a", "[13 at 2:0]"},
      {"a = Array(1)\nx = Not a", "[13 at 2:0]"},
      {"x = 5\nPrint x(1)", "[13 at 2:0]"},
      {"x = 5\nx.y = 1", "[424 at 2:0]"},
      {"Class Foo\nEnd Class\nPrint TypeName(New Foo), VarType(New Foo)", "Foo 9\n"},
      {"Class Foo\nPublic Default Property Get V\nV = 1.5\nEnd Property\nEnd Class\nPrint VarType(New Foo), "
       "IsNumeric(New Foo)",
       "5 True\n"},
      {"Dim "
       "a(0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,"
       "0,0,0,0,0,0)\nPrint UBound(a,60)",
       "0\n"},
      {"Class K\nPublic Default Property Get V\nV = 1\nEnd Property\nEnd Class\nSet o = New K\nPrint LBound(o)",
       "[13 at 7:0]"},
      {"Class K\nPublic Default Property Get V(x)\nV = 1\nEnd Property\nEnd Class\nSet o = New K\nPrint LBound(o)",
       "[450 at 7:0]"},
  };
  CheckScripts(kRows);
}

TEST(Programs, NamesAndHosts) {
  constexpr ScriptRow kRows[] = {
      {"Print UCase", "[450 at 1:0]"},
      {"UCase \"a\"\nPrint 1", "1\n"},
      {"Len = 5", "[501 at 1:0]"},
      {"Print Len(\"a\", \"b\")", "[450 at 1:0]"},
      {"With New RegExp\n.Pattern = \"a\"\nPrint .Test(\"cat\")\nEnd With", "True\n"},
      {"Set r = New RegExp\nr.Pattern = \"(\\w)(\\d)\"\nr.Global = True\nFor Each m In r.Execute(\"a1 b2\")\nPrint m, "
       "m.FirstIndex, m.Length, m.SubMatches(0), m.SubMatches(1)\nNext",
       "a1 0 2 a 1\nb2 3 2 b 2\n"},
      {"Randomize\nx = Rnd\nPrint x >= 0 And x < 1", "True\n"},
      {"Print Rnd(-1) = Rnd(-1), Rnd(0) = Rnd(0)", "True True\n"},
      {"Dim WithEvents x", "[1025 at 1:15]"},
      {"Stop : Print 1", "1\n"},
      {"Let x = 5", "[1024 at 1:0]"},
      {"GoSub x", "[13 at 1:0]"},
      {"Debug.Print 1", "[1024 at 1:0]"},
      {"Static x", "[1024 at 1:0]"},
      {"Type x", "[1024 at 1:0]"},
      {"Enum x", "[1024 at 1:0]"},
      {"Declare x", "[13 at 1:0]"},
      {"x += 1", "[1002 at 1:3]"},
      {"x = 1 AndAlso 2", "[1025 at 1:6]"},
      {"x = \"a\" Like \"b\"", "[1025 at 1:8]"},
      {"foo: Print 1", "[13 at 1:0]"},
      {"Print TypeName(Me)", "Object\n"},
      {"WScript.Echo 1", "[424 at 1:0]"},
      {"MsgBox \"x\"", "[70 at 1:0]"},
      {"x = InputBox(\"x\")", "[70 at 1:0]"},
      {"Set d = CreateObject(\"Scripting.Dictionary\")", "[429 at 1:0]"},
      {"CreateObject \"x\", \"y\"", "[429 at 1:0]"},
      {"Set d = GetObject(\"x\")", "[429 at 1:0]"},
      {"Print CreateObject()", "[450 at 1:0]"},
      {"Set d = CreateObject(Null)", "[94 at 1:0]"},
      {"Set d = CreateObject(5)", "[429 at 1:0]"},
      {"LoadPicture \"x\"", "[429 at 1:0]"},
  };
  CheckScripts(kRows);
}

TEST(Programs, Small) {
  constexpr ScriptRow kRows[] = {
      {"Print Len(vbNullString), vbNullString = \"\"", "0 True\n"},
      {"vbCr = 5", "[501 at 1:0]"},
      {"Dim vbCr : vbCr = 5 : Print vbCr", "5\n"},
      {"Print Timer > 0, TypeName(Date), TypeName(Time)", "True Date Date\n"},
      {"On Error Resume Next\nx = Foo(1)\nPrint Err.Number, Err.Description", "13 Type mismatch\n"},
      {"On Error Resume Next\nSet x = CreateObject(\"a.b\")\nPrint Err.Number, Err.Description, Err.Source",
       "429 ActiveX component can't create object Microsoft VBScript runtime error\n"},
      {"Dim x : x = Array(1,2,3) : Print x(0) + x(1) + x(2)", "6\n"},
      {"Print 0.1 + 0.2 = 0.3", "False\n"},
      {"Print 7 / 2, 7 \\ 2, 7 Mod 2, -7 \\ 2, -7 Mod 2, 2 ^ 3 ^ 2, -2 ^ 2", "3.5 3 1 -3 -1 64 4\n"},
      {"Print Int(-3.7), Fix(-3.7), Round(-3.7), CInt(-3.5), CInt(-2.5), CInt(0.5)", "-4 -3 -4 -4 -2 0\n"},
      {"Print \"10\" < \"9\", 10 < 9, \"10\" + 5, \"10\" & 5, \"abc\" = \"ABC\", StrComp(\"abc\", \"ABC\", "
       "vbTextCompare)",
       "True False 15 105 False 0\n"},
      {"a = Split(\"b,a,c\", \",\")\nFor i = 0 To 1\nFor j = i + 1 To 2\nIf a(i) > a(j) Then t = a(i) : a(i) = a(j) : "
       "a(j) = t\nNext\nNext\nPrint Join(a, \"\")",
       "abc\n"},
      {"Function Fib(n)\nIf n < 2 Then\nFib = n\nElse\nFib = Fib(n-1) + Fib(n-2)\nEnd If\nEnd Function\nFor i = 0 To "
       "10\ns = s & Fib(i) & \" \"\nNext\nPrint RTrim(s)",
       "0 1 1 2 3 5 8 13 21 34 55\n"},
      {"Class Stack\nPrivate items(), n\nPrivate Sub Class_Initialize\nn = 0\nEnd Sub\nPublic Sub Push(v)\nReDim "
       "Preserve items(n)\nitems(n) = v\nn = n + 1\nEnd Sub\nPublic Function Pop\nn = n - 1\nPop = items(n)\nEnd "
       "Function\nPublic Property Get Count\nCount = n\nEnd Property\nEnd Class\nSet s = New Stack\ns.Push 1 : s.Push "
       "\"two\" : s.Push 3.5\nPrint s.Count, s.Pop, s.Pop, s.Pop, s.Count",
       "3 3.5 two 1 0\n"},
      {"Class Node\nPublic Value, NextNode\nEnd Class\nSet head = Nothing\nFor i = 1 To 3\nSet n = New Node\nn.Value = "
       "i\nSet n.NextNode = head\nSet head = n\nNext\nDo Until head Is Nothing\ns = s & head.Value\nSet head = "
       "head.NextNode\nLoop\nPrint s",
       "321\n"},
      {"On Error Resume Next\nDim a(2)\na(5) = 1\nPrint Err.Number\nErr.Clear\nx = CInt(\"x\")\nPrint Err.Number\nOn "
       "Error GoTo 0\ny = 1 / 0",
       "9\n13\n[11 at 9:0]"},
      {"Sub A\nB\nPrint \"after B\"\nEnd Sub\nSub B\nErr.Raise 1001, \"B\", \"bad\"\nEnd Sub\nOn Error Resume "
       "Next\nA\nPrint Err.Number, Err.Source, Err.Description",
       "1001 B bad\n"},
      {"Print Hex(255) & Oct(8) & Chr(65) & Asc(\"a\")", "FF10A97\n"},
      {"Print LCase(\"ÀÉ\"), UCase(\"straße\"), Len(\"日本語\"), Mid(\"日本語\",2,1), StrReverse(\"añb\")",
       "àé STRAßE 3 本 bña\n"},
      {"Print InStr(\"ÄÖÜ\",\"Ö\"), InStr(1,\"ÄÖÜ\",\"ö\",1)", "2 2\n"},
      {"Print AscW(\"日\"), ChrW(26085), Hex(AscW(\"日\"))", "26085 日 65E5\n"},
      {"Print AscW(\"ÿ\"), Asc(\"ÿ\"), Chr(255)", "255 255 ÿ\n"},
      {"Print Len(\"😀\"), AscW(\"😀\")", "2 -10179\n"},
      {"Print TypeName(Null), TypeName(Empty), TypeName(Nothing), TypeName(#1/1/2000#), TypeName(\"a\"), "
       "TypeName(1.5), TypeName(True)",
       "Null Empty Nothing Date String Double Boolean\n"},
  };
  CheckScripts(kRows);
}

TEST(Programs, ElementsOfArrays) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPrivate Sub Class_Terminate\nPrint \"t\"\nEnd Sub\nEnd Class\nDim a(1)\nSet a(0) = New K\na(0) = "
       "5\nPrint \"x\"",
       "t\nx\n"},
      {"Class K\nPrivate Sub Class_Terminate\nPrint \"t\"\nEnd Sub\nEnd Class\nDim a(1,1)\nSet a(0,1) = New K\na(0,1) "
       "= 5\nPrint \"x\"",
       "t\nx\n"},
      {"Dim a(2,3)\nFor i = 0 To 2\nFor j = 0 To 3\na(i,j) = i * 10 + j\nNext\nNext\nb = a\nb(1,2) = \"z\"\nPrint "
       "a(1,2), b(1,2), a(2,3), a(0,3), a(2,0)",
       "12 z 23 3 20\n"},
      {"Dim a(2,3)\nx = a(3,0)", "[9 at 2:0]"},
      {"Dim a(2,3)\na(0,4) = 1", "[9 at 2:0]"},
      {"Dim a(2,3)\na(0,-1) = 1", "[9 at 2:0]"},
      {"Dim a(2,3)\na(1) = 1", "[9 at 2:0]"},
      {"Dim a(2)\na(1,1) = 1", "[9 at 2:0]"},
      {"Sub S(x)\nx(1,1) = 7\nEnd Sub\nDim a(1,1)\nS a\nPrint a(1,1)", "7\n"},
      {"Dim a(1,1)\na(1,1) = Array(1,2)\na(1,1) = 3\nPrint a(1,1)", "3\n"},
      {"Print 1.5 + 2.5, 1e308 * 10", "[6 at 1:0]"},
      {"x = 1.5 : y = x * x - 0.25 : Print y, TypeName(y)", "2 Double\n"},
  };
  CheckScripts(kRows);
}

TEST(Programs, WhatRanBeforeAnErrorStays) {
  Engine engine({});
  std::string result;
  const auto error = engine.AddCode("Option Explicit\nDim a\na = 3\nFunction F\nF = a * 2\nEnd Function\na = 1 / 0");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, 11);
  EXPECT_EQ(error->line, 7);
  ASSERT_FALSE(engine.Eval("F()", result));
  EXPECT_EQ(result, "6");
  // Option Explicit holds for its own text only.
  EXPECT_FALSE(engine.AddCode("b = 1"));
  EXPECT_FALSE(engine.AddCode("On Error Resume Next\nb = 1 / 0"));
}

}  // namespace
}  // namespace qv::vbscript
