#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Classes, Members) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPublic a\nDim b\nPrivate c\nEnd Class\nSet o = New K\no.a = 1\no.b = 2\nPrint o.a, o.b\no.c = 3",
       "1 2\n[438 at 10:0]"},
      {"Class K\nPublic a(2)\nEnd Class\nSet o = New K\no.a(1) = 5\nPrint o.a(1)", "5\n"},
      {"Class K\nPublic a\nEnd Class\nSet o = New K\nx = o.a(0)", "[438 at 5:0]"},
      {"Class K\nPublic a\nEnd Class\nSet o = New K\nx = o.a()", "[5 at 5:0]"},
      {"Class K\nFunction F(n)\nF = n + G(n)\nEnd Function\nPrivate Function G(n)\nG = 10\nEnd Function\nEnd Class\n"
       "Set o = New K\nPrint o.F(1)\nPrint o.G(1)",
       "11\n[438 at 11:0]"},
      {"Class K\nPrivate v\nProperty Get P\nP = v\nEnd Property\nProperty Let P(x)\nv = x * 2\nEnd Property\nEnd "
       "Class\n"
       "Set o = New K\no.P = 4\nPrint o.P",
       "8\n"},
      {"Class K\nPrivate v(3)\nProperty Get P(i)\nP = v(i)\nEnd Property\nProperty Let P(i, x)\nv(i) = x\nEnd "
       "Property\n"
       "End Class\nSet o = New K\no.P(2) = 4\nPrint o.P(2)",
       "4\n"},
      {"Class K\nPrivate v\nProperty Set P(x)\nSet v = x\nEnd Property\nProperty Get P\nSet P = v\nEnd Property\nEnd "
       "Class\n"
       "Set o = New K\nSet o.P = New RegExp\nPrint TypeName(o.P)",
       "IRegExp2\n"},
      {"Class K\nPublic Default Function D(n)\nD = n * 3\nEnd Function\nEnd Class\nSet o = New K\nPrint o(4)", "12\n"},
      {"Class K\nPublic Default Property Get D\nD = 7\nEnd Property\nEnd Class\nSet o = New K\nPrint o + 1, o & \"\"",
       "8 7\n"},
      {"Class K\nSub T\nPrint TypeName(Me)\nMe.U\nEnd Sub\nSub U\nPrint \"u\"\nEnd Sub\nEnd Class\nSet o = New K\no.T",
       "K\nu\n"},
      {"x = 5\nPrint Me.x", "5\n"},
      {"Class K\nPublic next_\nEnd Class\nSet a = New K\nSet a.next_ = New K\nSet a.next_.next_ = New K\n"
       "Print TypeName(a.next_.next_)",
       "K\n"},
      {"Class K\nFunction Me2\nSet Me2 = Me\nEnd Function\nFunction V\nV = 3\nEnd Function\nEnd Class\n"
       "Set o = New K\nPrint o.Me2.Me2().V",
       "3\n"},
      {"Class K\nx = 1\nEnd Class", "[1002 at 2:0]"},
      {"Class K\nFunction F\nEnd Property\nEnd Class", "[1015 at 3:4]"},
  };
  CheckScripts(kRows);
}

TEST(Classes, LifeTime) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nSub Class_Initialize\nPrint \"born\"\nEnd Sub\nSub Class_Terminate\nPrint \"gone\"\nEnd Sub\nEnd "
       "Class\n"
       "Set o = New K\nPrint 1\nSet p = o\nSet o = Nothing\nPrint 2\nSet p = Nothing\nPrint 3",
       "born\n1\n2\ngone\n3\n"},
      {"Class K\nSub Class_Terminate\nPrint \"gone\"\nEnd Sub\nEnd Class\nSub S\nDim o\nSet o = New K\nPrint 1\nEnd "
       "Sub\nS\n"
       "Print 2",
       "1\ngone\n2\n"},
      {"Class K\nPublic Default Function V\nV = 4\nEnd Function\nSub Class_Terminate\nPrint \"gone\"\nEnd Sub\nEnd "
       "Class\n"
       "x = (New K).V\nPrint x",
       "gone\n4\n"},
      {"Class K\nPublic n\nSub Class_Terminate\nPrint n\nEnd Sub\nEnd Class\nDim a(1)\nSet a(0) = New K\na(0).n = 1\n"
       "Set a(1) = New K\na(1).n = 2\nErase a\nPrint 3",
       "1\n2\n3\n"},
      {"Class K\nPublic other\nEnd Class\nSet a = New K\nSet a.other = a\nPrint 1", "1\n"},
      {"Class K\nSub Class_Initialize\nx = 1 / 0\nEnd Sub\nEnd Class\nSet o = New K", "[11 at 3:0]"},
  };
  CheckScripts(kRows);
}

TEST(Classes, ALongChainIsDestroyedWithoutRecursion) {
  EXPECT_EQ(Told("Class K\nPublic link\nEnd Class\nSet head = Nothing\nFor i = 1 To 100000\nSet n = New K\n"
                 "Set n.link = head\nSet head = n\nNext\nSet n = Nothing\nSet head = Nothing\nPrint 1"),
            "1\n");
  EXPECT_EQ(Told("a = Array(0)\nFor i = 1 To 100000\na = Array(a)\nNext\na = 0\nPrint 1"), "1\n");
}

TEST(Classes, New) {
  constexpr ScriptRow kRows[] = {
      {"Set o = New Foo", "[500 at 1:0]"},
      {"Foo = 1\nSet o = New Foo", "[506 at 2:0]"},
      {"Sub S\nDim Foo\nSet o = New Foo\nEnd Sub\nS", "[506 at 3:0]"},
      {"Set o = New K\nPrint TypeName(o)\nClass K\nEnd Class", "K\n"},
      {"Print TypeName(New RegExp), VarType(New RegExp)", "IRegExp2 9\n"},
  };
  CheckScripts(kRows);
}

TEST(Classes, IsComparesIdentity) {
  constexpr ScriptRow kRows[] = {
      {"Set a = New RegExp\nSet b = a\nPrint a Is b, a Is Nothing, Nothing Is Nothing, Not a Is Nothing",
       "True False True True\n"},
      {"x = 1\ny = (x Is Nothing)", "[424 at 2:0]"},
  };
  CheckScripts(kRows);
}

TEST(Classes, AtTheEndOfTheScript) {
  constexpr ScriptRow kRows[] = {
      {"Class K\nPublic Sub Class_Terminate\nPrint \"t\", n\nEnd Sub\nPublic n\nEnd Class\nSet a = New K\na.n = 1\nSet "
       "b = New K\nb.n = 2\nPrint \"end\"",
       "end\nt 1\nt 2\n"},
      {"Class K\nPrivate Sub Class_Terminate\nx = 1 / 0\nEnd Sub\nEnd Class\nSet a = New K\nPrint \"end\"",
       "end\n[11 at 3:0]"},
      {"Class K\nPrivate Sub Class_Terminate\nPrint \"t\"\nEnd Sub\nEnd Class\nSet a = New K\nx = 1 / 0",
       "t\n[11 at 7:0]"},
      {"Class K\nPublic o\nPrivate Sub Class_Terminate\nPrint \"t\"\nEnd Sub\nEnd Class\nSet a = New K\nSet a.o = New "
       "K\nSet a = Nothing\nPrint \"end\"",
       "t\nt\nend\n"},
      {"Const c = 5\nClass K\nPrivate Sub Class_Terminate\nPrint c\nEnd Sub\nEnd Class\nSet a = New K", "5\n"},
      {"Class K\nPrivate Sub Class_Terminate\nSet again = New K\nPrint \"t\"\nEnd Sub\nEnd Class\nDim again, a\nSet "
       "again = Nothing\nPrint 1",
       "1\n"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
