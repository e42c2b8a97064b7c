#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Language, Objects) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPublic Property Get A\nA=1\nEnd Property\nEnd Class\nSet o = New K\no.A = 2", "[438 at 7:0]"},
      {"Class K\nPublic x\nEnd Class\nSet o = New K\nSet o.x = o\nPrint TypeName(o.x)\nSet o.x = Nothing\no.x.y = 1",
       "K\n[424 at 8:0]"},
      {"Class K\nPrivate Sub P\nEnd Sub\nEnd Class\nSet o = New K\no.P", "[438 at 6:0]"},
      {"Class K\nPublic Function F(a,b)\nF=a+b\nEnd Function\nEnd Class\nSet o = New K\nPrint o.F(1,2)\nPrint o.F(1)",
       "3\n[450 at 8:0]"},
      {"Class K\nPublic v\nEnd Class\nSet a = New K : Set b = a\nb.v = 3\nPrint a.v, a Is b", "3 True\n"},
      {"Class K\nPrivate Sub Class_Initialize\nPrint \"i\"\nEnd Sub\nPrivate Sub Class_Terminate\nPrint \"t\"\nEnd "
       "Sub\nEnd Class\nSet o = New K\nSet o = New K\nPrint \"e\"",
       "i\ni\nt\ne\nt\n"},
      {"Class K\nDim a(2)\nPublic Sub S\na(1)=5\nPrint a(1), UBound(a)\nEnd Sub\nEnd Class\nSet o = New K\no.S",
       "5 2\n"},
      {"Class K\nDim a()\nPublic Sub S\nReDim a(3)\na(1)=5\nPrint a(1), UBound(a)\nEnd Sub\nEnd Class\nSet o = New "
       "K\no.S",
       "5 3\n"},
      {"Class K\nPublic Property Let P(i,v)\nPrint i,v\nEnd Property\nPublic Property Get P(i)\nP=i*2\nEnd "
       "Property\nEnd Class\nSet o = New K\no.P(3)=4\nPrint o.P(5)",
       "3 4\n10\n"},
      {"Class K\nPublic Property Get P\nP = Array(1,2)\nEnd Property\nEnd Class\nSet o = New K\nPrint o.P()(1), o.P(1)",
       "[450 at 7:0]"},
      {"Set o = New Nope", "[500 at 1:0]"},
      {"x = New RegExp", "[438 at 1:0]"},
      {"Class K\nEnd Class\nDim k2\nk2 = New K", "[438 at 4:0]"},
      {"Class K\nEnd Class\nSet K = 5", "[501 at 3:0]"},
      {"Set x = Nothing\nIf x Is Nothing Then Print \"n\"", "n\n"},
      {"x = Empty\nx.foo", "[424 at 2:0]"},
      {"x = \"s\"\nx.foo", "[424 at 2:0]"},
      {"x = \"s\"\ny = x.foo", "[424 at 2:0]"},
      {"Set x = Nothing\ny = x.foo", "[424 at 2:0]"},
      {"Set x = New RegExp\nx", "[438 at 2:0]"},
      {"Set x = New RegExp\nx 1", "[438 at 2:0]"},
      {"Set x = New RegExp\ny = x(1)", "[438 at 2:0]"},
      {"Set x = Nothing\ny = x + 1", "[91 at 2:0]"},
      {"Set x = Nothing\ny = x & 1", "[91 at 2:0]"},
      {"Set x = Nothing\nIf x = 1 Then Print 1", "[91 at 2:0]"},
      {"Set x = Nothing\nIf x Then Print 1", "[91 at 2:0]"},
  };
  CheckScripts(kRows);
}

TEST(Language, Loops) {
  constexpr ScriptRow kRows[] = {
      {"If \"abc\" Then Print 1", "[13 at 1:0]"},
      {"If Empty Then Print 1 Else Print 2", "2\n"},
      {"While \"x\"\nWend", "[13 at 1:0]"},
      {"x = 1\nDo Until x > 3\nx = x + 1\nLoop\nPrint x", "4\n"},
      {"For i = 1 To \"3\"\nPrint i\nNext", "1\n2\n3\n"},
      {"For i = 1.5 To 3\nPrint i\nNext", "1.5\n2.5\n"},
      {"For i = 1 To \"x\"\nNext", "[13 at 1:0]"},
      {"For i = Null To 3\nNext", "[94 at 1:0]"},
      {"For i = 1 To 3 Step 0\nExit For\nNext\nPrint i", "1\n"},
      {"For i = 3 To 1 Step -2\nPrint i\nNext\nPrint i", "3\n1\n-1\n"},
      {"For i = CByte(250) To 255\nNext\nPrint i, TypeName(i)", "256 Integer\n"},
      {"For i = 0.1 To 0.5 Step 0.1\nn = n + 1\nNext\nPrint n", "5\n"},
      {"For i = #1/1/2000# To #1/3/2000#\nPrint i\nNext", "1/1/2000\n1/2/2000\n1/3/2000\n"},
      {"For i = True To 1\nPrint i\nNext", "True\n0\n1\n"},
      {"Dim a(2)\nFor Each v In a\nn = n + 1\nNext\nPrint n", "3\n"},
      {"For Each v In Array()\nPrint 1\nNext\nPrint 2", "2\n"},
      {"Dim a()\nFor Each v In a\nPrint 1\nNext\nPrint 2", "2\n"},
      {"For Each v In \"abc\"\nNext", "[451 at 1:0]"},
      {"For Each v In Empty\nNext", "[451 at 1:0]"},
      {"For Each v In Null\nNext", "[451 at 1:0]"},
      {"a = Array(1,2,3)\nFor Each v In a\na(2) = 9\nPrint v\nNext", "1\n2\n3\n"},
      {"Select Case \"a\"\nCase \"A\"\nPrint 1\nCase \"a\"\nPrint 2\nEnd Select", "2\n"},
      {"Select Case Null\nCase Null\nPrint 1\nCase Else\nPrint 2\nEnd Select", "2\n"},
      {"Select Case True\nCase 1 > 2\nPrint 1\nCase 2 > 1\nPrint 2\nEnd Select", "2\n"},
      {"x = 5\nSelect Case x\nCase \"5\"\nPrint 1\nCase 5\nPrint 2\nEnd Select", "1\n"},
      {"Select Case 1\nCase Array(1)\nEnd Select", "[13 at 1:0]"},
      {"Select Case 1 : Case 1 : Print 1 : End Select", "1\n"},
  };
  CheckScripts(kRows);
}

TEST(Language, Procedures) {
  constexpr ScriptRow kRows[] = {
      {"Sub S(ByRef a, ByVal b)\na = 1 : b = 1\nEnd Sub\nx = 0 : y = 0\nS x, y\nPrint x, y", "1 0\n"},
      {"Function F(a)\na = a + 1\nF = a\nEnd Function\nx = 1\nPrint F(x), x, F((x)), x", "2 2 3 2\n"},
      {"Function F\nF = 5\nEnd Function\nF = 6", "[501 at 4:0]"},
      {"Const c = 1\nSub S(a)\na = 2\nEnd Sub\nS c\nPrint c", "1\n"},
      {"Function Fact(n)\nIf n <= 1 Then Fact = 1 Else Fact = n * Fact(n - 1)\nEnd Function\nPrint Fact(10), Fact(20)",
       "3628800 2.43290200817664E+18\n"},
      {"Print F()(0)(1)\nFunction F\nF = Array(Array(1,2))\nEnd Function", "2\n"},
      {"Class K\nPublic a\nFunction M(n)\nSet M = Me\nEnd Function\nEnd Class\nSet o = New K\no.M(1).M(2).a = 7\nPrint "
       "o.a",
       "7\n"},
      {"Class K\nPublic a(2)\nFunction M\nSet M = Me\nEnd Function\nEnd Class\nSet o = New K\no.M().a(1) = 7\nPrint "
       "o.M.a(1)",
       "7\n"},
      {"Function F\nF = 1\nF = F + 1\nEnd Function\nPrint F", "2\n"},
      {"Function F(n)\nIf n > 0 Then F = F(n-1) + 1 Else F = 0\nEnd Function\nPrint F(100)", "100\n"},
      {"Function F\nF = 1\nDim F\nEnd Function", "[1041 at 3:4]"},
      {"Sub S\nConst a = 1, a = 2\nEnd Sub", "[1041 at 2:13]"},
      {"Sub S\nDim a\nConst a = 1\nEnd Sub", "[1041 at 3:6]"},
      {"Class K\nDim a\nFunction a\nEnd Function\nEnd Class", "[1041 at 3:9]"},
      {"Class K\nDim a, a\nEnd Class", "[1041 at 2:7]"},
      {"Class K\nProperty Get a\nEnd Property\nSub a\nEnd Sub\nEnd Class", "[1041 at 4:4]"},
      {"Class K\nProperty Let a(x)\nEnd Property\nProperty Let a(x)\nEnd Property\nEnd Class", "[1041 at 4:13]"},
      {"Class K\nProperty Let a(x)\nEnd Property\nProperty Set a(x)\nEnd Property\nProperty Get a\nEnd Property\nEnd "
       "Class\nPrint 1",
       "1\n"},
  };
  CheckScripts(kRows);
}

TEST(Language, Errors) {
  constexpr ScriptRow kRows[] = {
      {"On Error Resume Next\nx = 1/0\nIf Err Then Print Err.Number, Err.Description, Err.Source\nErr.Clear\nPrint "
       "Err.Number",
       "11 Division by zero Microsoft VBScript runtime error\n0\n"},
      {"On Error Resume Next\nErr.Raise 1\nPrint Err.Description", "Unknown runtime error\n"},
      {"On Error Resume Next\nErr.Raise vbObjectError + 1, \"src\", \"desc\"\nPrint Err.Number, Err.Source, "
       "Err.Description",
       "-2147221503 src desc\n"},
      {"Err.Raise 513, \"MySrc\", \"My desc\"", "[513 at 1:0]"},
      {"Err.Raise 13", "[13 at 1:0]"},
      {"Err.Raise -1", "[-1 at 1:0]"},
      {"Err.Raise \"x\"", "[13 at 1:0]"},
      {"Err.Raise Null", "[94 at 1:0]"},
      {"On Error Resume Next\nErr.Raise 9\nPrint Err.HelpContext, \"[\" & Err.HelpFile & \"]\"", "0 []\n"},
      {"Sub S\nOn Error Resume Next\nx = 1/0\nPrint Err.Number\nEnd Sub\nS\nPrint Err.Number", "11\n11\n"},
      {"Sub S\nOn Error Resume Next\nErr.Raise 7\nOn Error GoTo 0\nPrint Err.Number\nEnd Sub\nS", "0\n"},
      {"On Error Resume Next\nSub S\nOn Error GoTo 0\nx = 1/0\nPrint \"n\"\nEnd Sub\nS\nPrint Err.Number", "11\n"},
      {"On Error Resume Next\nx = CInt(\"a\")\nPrint Err.Description", "Type mismatch\n"},
      {"On Error Resume Next\ny = z.a\nPrint Err.Description", "Object required\n"},
      {"On Error Resume Next\nExecuteGlobal \"x = \"\nPrint Err.Number, Err.Description", "1002 Syntax error\n"},
      {"On Error Resume Next\nErr.Raise 5, \"s\", \"d\"\nErr.Raise 6\nPrint Err.Number, Err.Source, Err.Description",
       "6 s d\n"},
      {"On Error Resume Next\nErr.Raise 5, \"s\", \"d\"\nErr.Clear\nErr.Raise 6\nPrint Err.Number, Err.Source, "
       "Err.Description",
       "6 Microsoft VBScript runtime error Overflow\n"},
      {"On Error Resume Next\nErr.Raise 5, \"s\", \"d\"\nx = 1/0\nPrint Err.Number, Err.Source, Err.Description",
       "11 Microsoft VBScript runtime error Division by zero\n"},
      {"On Error Resume Next\nErr.Raise 5, , \"d\"\nPrint Err.Number, Err.Source, Err.Description",
       "5 Microsoft VBScript runtime error d\n"},
      {"On Error Resume Next\nErr.Raise \"13\"\nPrint Err.Number", "13\n"},
      {"On Error Resume Next\nErr.Raise 1, 2, 3\nPrint Err.Source, Err.Description", "2 3\n"},
      {"On Error Resume Next\nErr.Raise 1,\"a\",\"b\",\"c\",5,6\nPrint Err.Number", "450\n"},
      {"Print Err.Number, \"[\" & Err.Description & \"]\", \"[\" & Err.Source & \"]\"", "0 [] []\n"},
      {"Err.Clear\nPrint 1", "1\n"},
      {"On Error Resume Next\nErr.Number = 5\nPrint Err.Description", "\n"},
      {"Set e = Err\nOn Error Resume Next\nx=1/0\nPrint e.Number", "11\n"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
