#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

// A variable that nothing was put into counts as nothing, whatever stood in its place before.
TEST(Variables, StartAsNothing) {
  constexpr ScriptRow kRows[] = {
      {"Sub A\nDim q\nq = 77\nEnd Sub\nSub B\nDim r\nPrint r + 1, r * 2, r - 1, r = 0, r \\ 1, r & \"x\", r < 1\nEnd "
       "Sub\nA\nB",
       "1 0 -1 True 0 x True\n"},
      {"Sub A\nDim q\nq = \"text\"\nEnd Sub\nSub B\nDim r\nPrint r + 1, r * 2, r - 1, r = 0, r Mod 3, r & \"x\", r And "
       "5, Not r, Abs(r), Int(r), CLng(r)\nEnd Sub\nA\nB",
       "1 0 -1 True 0 x 0 -1 0 0 0\n"},
      {"Dim x\nx = 5\nx = Empty\nPrint x + 1, -x, x = 0", "1 0 True\n"},
      {"Sub A\nDim q\nq = 1.5\nEnd Sub\nSub B\nDim r\nFor i = r To 1\nPrint i\nNext\nFor i = 0 To r\nPrint "
       "i\nNext\nEnd Sub\nA\nB",
       "0\n1\n0\n"},
      {"Sub A\nDim q\nq = 77\nEnd Sub\nSub B\nDim r\nr = r + 1\nPrint r\nEnd Sub\nA\nB", "1\n"},
      {"Sub A\nDim q\nq = 77\nEnd Sub\nSub B\nDim r\nReDim v(r)\nPrint UBound(v), Space(r) & \"|\", Chr(65 + r), "
       "Hex(r), Round(r), Sgn(r), DateSerial(2000 + r, 1, 1)\nEnd Sub\nA\nB",
       "0 | A 0 0 0 1/1/2000\n"},
      {"Sub A\nDim q\nq = CCur(7)\nEnd Sub\nSub B\nDim r\nPrint r * CCur(2), r + CCur(2), CCur(2) * r, r / 5, r ^ 2, "
       "-r, r & 1, r = \"\", r Xor 3, r Imp 0, r + 1.5, 1.5 * r, r + #1/1/2000#\nEnd Sub\nA\nB",
       "0 2 0 0 0 0 1 True 3 -1 1.5 0 1/1/2000\n"},
      {"Function Count(s)\nFor i = 1 To Len(s)\nn = n + 1\nNext\nCount = n\nEnd Function\nPrint Count(\"abc\"), "
       "Count(\"abcd\"), Count(\"\")",
       "3 4 \n"},
      {"Function F\nF = F + 1\nEnd Function\nPrint F, F, F", "1 1 1\n"},
      {"Class K\nPublic n\nSub Inc\nn = n + 1\nEnd Sub\nEnd Class\nSet o = New K\no.n = 9\nSet o = Nothing\nSet o = "
       "New K\no.Inc\nPrint o.n",
       "1\n"},
      {"Dim a(2)\na(1) = 9\nErase a\na(1) = a(1) + 1\nPrint a(1)", "1\n"},
      {"ReDim a(2)\na(1) = 9\nReDim a(2)\nPrint a(1) + 1, a(1) - 1, a(1) * 2", "1 -1 0\n"},
      {"Sub S(n)\nDim t\nt = t + n\nPrint t\nEnd Sub\nS 5\nS 6", "5\n6\n"},
      {"x = 7\nExecute \"x = Empty\"\nx = x + 1\nPrint x", "1\n"},
      {"Select Case Empty + 0\nCase 0\nPrint 1\nEnd Select", "1\n"},
      {"Sub A\nDim q\nq = 3\nEnd Sub\nSub B\nDim r\nFor i = 1 To 2 + r\ns = s & i\nNext\nIf r Then s = s & "
       "\"t\"\nWhile r < 2\nr = r + 1\nWend\nPrint s, r\nEnd Sub\nA\nB",
       "12 2\n"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
