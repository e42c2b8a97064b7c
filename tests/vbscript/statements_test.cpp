#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Statements, OrderOfWork) {
  constexpr ScriptRow kRows[] = {
      {"Print F(2)\nFunction F(n)\nF = n * 2\nEnd Function", "4\n"},
      {"x = 3\nDim x\nPrint x", "3\n"},
      {"a(1) = 5\nPrint a(1)\nDim a(2)", "5\n"},
      {"Print K\nIf False Then\nConst K = 6\nEnd If", "6\n"},
      {"If False Then\nFunction F()\nF = 1\nEnd Function\nEnd If\nPrint F()", "1\n"},
      {"Select Case 1\nCase 2\nSub S\nPrint 2\nEnd Sub\nEnd Select\nS", "2\n"},
      {"x = 1 : Class C\nPublic v\nEnd Class\nSet o = New C\no.v = x\nPrint o.v", "1\n"},
      {"' first\n\n: Option Explicit\nDim x\nx = 1\nPrint x", "1\n"},
      {"Option Explicit\nExecute \"y = 2 : Print y\"", "2\n"},
      {"Option Explicit\nFor i = 1 To 2\nNext", "[500 at 2:0]"},
      {"Sub S\nIf True Then\nClass C\nEnd Class\nEnd If\nEnd Sub", "[1002 at 3:0]"},
      {"If True Then\nClass C\nEnd Class\nEnd If", "[1002 at 2:0]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, NameClashesInOneText) {
  const char* const kDeclarations[] = {"Dim x", "Const x = 1", "Function x()\nEnd Function", "Class x\nEnd Class"};
  for (int first = 0; first < 4; ++first) {
    for (int second = 0; second < 4; ++second) {
      const auto outcome = RunScript(std::string(kDeclarations[first]) + "\n" + kDeclarations[second]);
      if (first == 2 && second == 2) {
        EXPECT_FALSE(outcome.error);
      } else {
        ASSERT_TRUE(outcome.error) << first << second;
        EXPECT_EQ(outcome.error->number, 1041) << first << second;
      }
    }
  }
  constexpr ScriptRow kRows[] = {
      {"Print F()\nFunction F()\nF = 1\nEnd Function\nFunction F()\nF = 2\nEnd Function", "2\n"},
      {"F\nFunction F()\nPrint 1\nEnd Function\nSub F()\nPrint 3\nEnd Sub", "3\n"},
      {"Sub S\nDim a\nDim A\nEnd Sub", "[1041 at 3:4]"},
      {"Sub S(a)\nDim a\nEnd Sub", "[1041 at 2:4]"},
      {"Sub S(a, A)\nEnd Sub", "[1041 at 1:9]"},
      {"Dim x\nx = 1\nSub S\nDim x\nx = 2\nPrint x\nEnd Sub\nS\nPrint x", "2\n1\n"},
      {"Class K\nPublic a\nSub a\nEnd Sub\nEnd Class", "[1041 at 3:4]"},
      {"Class K\nProperty Get p\nEnd Property\nProperty Get p\nEnd Property\nEnd Class", "[1041 at 4:13]"},
      {"Dim a\nConst b = 1\nClass K\nPublic a, b\nEnd Class\nPrint 1", "1\n"},
      {"Function Len(s)\nLen = 99\nEnd Function\nPrint Len(\"abc\")", "99\n"},
      {"Dim Left\nLeft = 4\nPrint Left", "4\n"},
      {"Class RegExp\nEnd Class\nPrint TypeName(New RegExp)", "IRegExp2\n"},
  };
  CheckScripts(kRows);
}

TEST(Statements, NameClashesWithEarlierTexts) {
  struct Pair {
    const char* first;
    const char* second;
    int number;
  };
  constexpr Pair kPairs[] = {
      {"Dim x", "Dim x", 0},
      {"Const x = 1", "Dim x", 0},
      {"Sub x\nEnd Sub", "Dim x", 0},
      {"Class x\nEnd Class", "Dim x", 0},
      {"Dim x", "Sub x\nEnd Sub", 0},
      {"Const x = 1", "Function x\nEnd Function", 0},
      {"Sub x\nEnd Sub", "Function x\nEnd Function", 0},
      {"Class x\nEnd Class", "Sub x\nEnd Sub", 1041},
      {"Class x\nEnd Class", "Const x = 1", 1041},
      {"Class x\nEnd Class", "Class x\nEnd Class", 1041},
      {"Dim x", "Const x = 1", 1041},
      {"Sub x\nEnd Sub", "Const x = 1", 1041},
      {"Const x = 1", "Const x = 1", 1041},
      {"Dim x", "Class x\nEnd Class", 1041},
      {"Sub x\nEnd Sub", "Class x\nEnd Class", 1041},
      {"Dim x(2)", "Dim x(3)", 13},
      {"Dim x", "Dim x(3)\nx(3) = 1", 0},
  };
  for (const Pair& pair : kPairs) {
    Engine engine({});
    ASSERT_FALSE(engine.AddCode(pair.first)) << pair.first;
    const auto error = engine.AddCode(pair.second);
    EXPECT_EQ(error ? error->number : 0, pair.number) << pair.first << " / " << pair.second;
  }
}

TEST(Statements, LaterTextsReplaceProcedures) {
  Engine engine({});
  std::string result;
  ASSERT_FALSE(engine.AddCode("Function F()\nF = 1\nEnd Function\nFunction G()\nG = F()\nEnd Function"));
  ASSERT_FALSE(engine.AddCode("Function F()\nF = 2\nEnd Function"));
  ASSERT_FALSE(engine.Eval("G()", result));
  EXPECT_EQ(result, "2");
  ASSERT_FALSE(engine.AddCode(""));
  ASSERT_FALSE(engine.AddCode("' only this"));
  EXPECT_TRUE(engine.AddCode("If True Then"));
  EXPECT_TRUE(engine.AddCode("End If"));
}

TEST(Statements, ArraysAreDeclaredAndRedimensioned) {
  constexpr ScriptRow kRows[] = {
      {"For i = 1 To 3\nDim x\nx = x + 1\nNext\nPrint x", "3\n"},
      {"Dim a()\nPrint UBound(a)", "[9 at 2:0]"},
      {"Dim a()\nReDim a(3)\na(3) = 1\nReDim Preserve a(5)\nPrint a(3), UBound(a)", "1 5\n"},
      {"ReDim a(2)\na(1) = 5\nReDim a(2)\nPrint IsEmpty(a(1))", "True\n"},
      {"Option Explicit\nReDim a(2)\nPrint UBound(a)", "2\n"},
      {"Sub S\nReDim a(4)\nPrint UBound(a)\nEnd Sub\nS", "4\n"},
      {"x = 5\nReDim x(1)\nPrint UBound(x)", "1\n"},
      {"Dim a(2)\nReDim a(3)", "[10 at 2:0]"},
      {"ReDim a(2, 3)\na(1, 2) = 7\nReDim Preserve a(2, 5)\nPrint a(1, 2), UBound(a, 2)", "7 5\n"},
      {"ReDim a(2, 3)\nReDim Preserve a(3, 3)", "[9 at 2:0]"},
      {"ReDim a(2, 3)\nReDim Preserve a(2)", "[9 at 2:0]"},
      {"ReDim a(-1)\nPrint UBound(a)", "-1\n"},
      {"ReDim a(\"x\")", "[13 at 1:0]"},
      {"ReDim a(1)\nReDim Preserve a(\"x\")", "[5 at 2:0]"},
      {"Dim a(2)\na(1) = 5\nErase a\nPrint IsEmpty(a(1)), UBound(a)", "True 2\n"},
      {"ReDim a(2)\nErase a\nErase a\nPrint a(0)", "[9 at 4:0]"},
      {"x = 1\nErase x", "[13 at 2:0]"},
      {"Erase y", "[13 at 1:0]"},
      {"Option Explicit\nErase y", "[500 at 2:0]"},
      {"Dim a(1, 2, 3)\nPrint UBound(a, 1), UBound(a, 2), UBound(a, 3)", "1 2 3\n"},
      {"Dim a(1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1)\na(0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1) = 3\nPrint "
       "a(0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,1)",
       "3\n"},
      {"a = Array(1, 2)\nb = a\nb(0) = 9\nPrint a(0), b(0)", "1 9\n"},
      {"Sub S(ByVal x)\nx(0) = 9\nEnd Sub\na = Array(1)\nS a\nPrint a(0)", "1\n"},
      {"Sub S(x)\nx(0) = 9\nEnd Sub\na = Array(1)\nS a\nPrint a(0)", "9\n"},
      {"a = Array(Array(1, 2), 3)\na(0)(1) = 7\nPrint a(0)(1)", "7\n"},
      {"a = Array(1)\nPrint a(0, 0)", "[9 at 2:0]"},
      {"a = Array(1, 2)\nPrint a(\"1\")", "2\n"},
      {"x = 5\ny = x(0)", "[13 at 2:0]"},
      {"x = 5\nx(0) = 1", "[13 at 2:0]"},
      {"x = 5\ny = x()", "[13 at 2:0]"},
      {"a = Array(1)\ny = a()", "[9 at 2:0]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, Constants) {
  constexpr ScriptRow kRows[] = {
      {"Const a = 5, b = \"x\", c = -+-3, d = True, e = Empty, f = Null, h = #1/2/2003#\nPrint a, b, c, d, h",
       "5 x 3 True 1/2/2003\n"},
      {"Const n = Nothing\nPrint n Is Nothing", "True\n"},
      {"Public Const a = 1\nPrivate Const b = 2\nPrint a + b", "3\n"},
      {"Const a = (2)", "[1045 at 1:13]"},
      {"Const a = -\"2\"", "[1045 at 1:14]"},
      {"Const a = 1\nConst b = a", "[1045 at 2:11]"},
      {"Sub S\nConst k = 3\nPrint k\nk = 4\nEnd Sub\nS", "3\n[501 at 4:0]"},
      {"vbCr = 1", "[501 at 1:0]"},
      {"Sub S\nEnd Sub\nS = 3", "[501 at 3:0]"},
      {"Function F\nEnd Function\nF = 3", "[501 at 3:0]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, NamesThatNothingDeclares) {
  constexpr ScriptRow kRows[] = {
      {"Print IsEmpty(zz)", "True\n"},
      {"Sub S\ny = 5\nPrint y\nEnd Sub\nS\nPrint IsEmpty(y)", "5\nTrue\n"},
      {"y = 1\nSub S\ny = 5\nEnd Sub\nS\nPrint y", "5\n"},
      {"Sub S\nT w\nPrint w\nEnd Sub\nSub T(v)\nv = 8\nEnd Sub\nS", "8\n"},
      {"T w\nPrint w\nSub T(v)\nv = 8\nEnd Sub", "8\n"},
      {"n = Foo(1)", "[13 at 1:0]"},
      {"Option Explicit\nDim n\nn = Foo(1)", "[500 at 3:0]"},
      {"Option Explicit\nFoo 1", "[500 at 2:0]"},
      {"WScript.Echo \"x\"", "[424 at 1:0]"},
      {"Option Explicit\nWScript.Echo \"x\"", "[500 at 2:0]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, Assignment) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPublic Default Property Get V\nV = 5\nEnd Property\nEnd Class\nSet o = New K\nx = o\nPrint x", "5\n"},
      {"Class K\nEnd Class\nSet o = New K\nx = o", "[438 at 4:0]"},
      {"x = Nothing", "[91 at 1:0]"},
      {"Set x = 5", "[424 at 1:0]"},
      {"Class K\nProperty Let P(v)\nEnd Property\nEnd Class\nSet o = New K\nSet o.P = o", "[438 at 6:0]"},
      {"Class K\nProperty Let P(v)\nPrint IsObject(v)\nEnd Property\nEnd Class\nSet o = New K\no.P = o", "True\n"},
      {"Dim a(1)\nSet a(0) = New RegExp\nPrint TypeName(a(0))", "IRegExp2\n"},
      {"Let x = 1", "[1024 at 1:0]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, Conditions) {
  constexpr ScriptRow kRows[] = {
      {"If Null Then\nPrint 1\nElse\nPrint 2\nEnd If", "2\n"},
      {"If 0.5 Then Print 1 Else Print 2", "1\n"},
      {"If \"true\" Then Print 1", "1\n"},
      {"If \"#TRUE#\" Then Print 1", "1\n"},
      {"If \"False\" Then Print 1 Else Print 2", "2\n"},
      {"If \"12\" Then Print 1", "1\n"},
      {"If \"abc\" Then Print 1", "[13 at 1:0]"},
      {"If 1 Then If 0 Then Print 1 Else Print 2", "2\n"},
      {"If 1 Then x = 1 : Print x : Print 2 Else Print 3 : Print 4", "1\n2\n"},
      {"If 0 Then Print 1 Else Print 3 : Print 4 End If", "3\n4\n"},
      {"n = 3\nIf n = 1 Then\nPrint 1\nElseIf n = 3 Then Print 3\nElse Print 4\nEnd If", "3\n"},
      {"n = 4\nIf n = 1 Then\nPrint 1\nElse Print 4 End If", "4\n"},
      {"If 1 Then Foo Else Bar", "[1002 at 1:14]"},
      {"Sub Foo(x)\nPrint x\nEnd Sub\nIf 1 Then Foo 1 Else Foo 2", "1\n"},
      {"If 1 Then Call S Else Call S\nSub S\nPrint 5\nEnd Sub", "5\n"},
      {"If 1 Then\nPrint 1\nEnd If : Print 2", "1\n2\n"},
  };
  CheckScripts(kRows);
}

TEST(Statements, SelectCase) {
  constexpr ScriptRow kRows[] = {
      {"Select Case 3\nCase 1, 3\nPrint \"a\"\nCase 3\nPrint \"b\"\nCase Else\nPrint \"c\"\nEnd Select", "a\n"},
      {"Select Case 9\nCase 1\nPrint 1\nCase Else\nPrint 2\nEnd Select", "2\n"},
      {"Select Case 1\nCase 1 x = 2\nPrint x\nEnd Select", "2\n"},
      {"Select Case 1\nEnd Select\nPrint 1", "1\n"},
      {"Function F(n)\nPrint n\nF = n\nEnd Function\nSelect Case 2\nCase F(1), F(2), F(3)\nPrint \"hit\"\nEnd Select",
       "1\n2\nhit\n"},
      {"x = \"5\"\nSelect Case x\nCase 5\nPrint 1\nCase Else\nPrint 2\nEnd Select", "1\n"},
      {"Select Case 2\nCase 1 To 3\nEnd Select", "[1024 at 2:7]"},
      {"Select Case 2\nCase Is > 1\nEnd Select", "[1002 at 2:5]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, Loops) {
  constexpr ScriptRow kRows[] = {
      {"For i = 1 To 3\nNext\nPrint i", "4\n"},
      {"For i = 3 To 1\nPrint i\nNext\nPrint i", "3\n"},
      {"For i = 3 To 1 Step -1\nPrint i\nNext", "3\n2\n1\n"},
      {"For i = 1 To 2 Step 0.5\nPrint i * 2\nNext", "2\n3\n4\n"},
      {"n = 3\nFor i = 1 To n\nn = 10\nNext\nPrint i", "4\n"},
      {"For i = 1 To 10\ni = i + 4\nPrint i\nNext", "5\n10\n"},
      {"For i = Empty To 1\nPrint i\nNext", "0\n1\n"},
      {"For i = 1 To 3\ni = \"x\"\nNext", "[13 at 1:0]"},
      {"For i = 32766 To 32769\nNext\nPrint i, TypeName(i)", "32770 Long\n"},
      {"Function N(x)\nPrint x\nN = x\nEnd Function\nFor i = N(1) To N(2) Step N(1)\nNext", "1\n2\n1\n"},
      {"For Each v In Array(1, \"a\")\nPrint v\nNext", "1\na\n"},
      {"Dim a(1, 1)\na(0, 0) = 1 : a(1, 0) = 2 : a(0, 1) = 3 : a(1, 1) = 4\nFor Each v In a\nPrint v\nNext",
       "1\n2\n3\n4\n"},
      {"a = Array(1, 2)\nFor Each v In a\nv = 9\nNext\nPrint a(0)", "1\n"},
      {"Set r = New RegExp\nr.Pattern = \"a\"\nr.Global = True\nFor Each m In r.Execute(\"aa\")\nPrint "
       "m.FirstIndex\nNext\n"
       "Print IsEmpty(m)",
       "0\n1\nTrue\n"},
      {"For Each v In 3\nNext", "[451 at 1:0]"},
      {"n = 0\nWhile n < 3\nn = n + 1\nWend\nPrint n", "3\n"},
      {"n = 0\nDo While n < 3\nn = n + 1\nLoop\nPrint n", "3\n"},
      {"n = 0\nDo Until n = 3\nn = n + 1\nLoop\nPrint n", "3\n"},
      {"n = 5\nDo\nn = n + 1\nLoop While n < 3\nPrint n", "6\n"},
      {"n = 0\nDo\nn = n + 1\nLoop Until n = 4\nPrint n", "4\n"},
      {"n = 0\nDo\nn = n + 1\nIf n = 2 Then Exit Do\nLoop\nPrint n", "2\n"},
      {"For i = 1 To 9\nFor j = 1 To 9\nIf j = 2 Then Exit For\nNext\nIf i = 3 Then Exit For\nNext\nPrint i, j",
       "3 2\n"},
      {"Do\nFor i = 1 To 3\nExit Do\nNext\nLoop\nPrint i", "1\n"},
      {"Exit Do", "[1039 at 1:5]"},
      {"Sub S\nExit Function\nEnd Sub", "[1039 at 2:5]"},
      {"For i = 1 To 2\nSub S\nExit For\nEnd Sub\nNext", "[1002 at 2:0]"},
      {"While 1\nExit While\nWend", "[1039 at 2:5]"},
  };
  CheckScripts(kRows);
}

TEST(Statements, With) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPublic a, b\nEnd Class\nWith New K\n.a = 1\n.b = .a + 1\nPrint .a, .b\nEnd With", "1 2\n"},
      {"Class K\nPublic a\nEnd Class\nSet o = New K\nSet o.a = New K\nWith o\nWith .a\n.a = 5\nEnd With\nPrint "
       ".a.a\nEnd "
       "With",
       "5\n"},
      {"Class K\nPublic v\nSub P(n)\nPrint n\nEnd Sub\nEnd Class\nWith New K\n.v = 4\n.P .v\nEnd With", "4\n"},
      {"With 3\nEnd With", "[424 at 1:0]"},
      {"With Nothing\nPrint 1\n.x = 1\nEnd With", "1\n[424 at 3:0]"},
      {".x = 1", "[505 at 1:0]"},
      {"y = .x", "[505 at 1:0]"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
