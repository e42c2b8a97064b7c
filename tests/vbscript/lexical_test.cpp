#include <gtest/gtest.h>

#include <string>

#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Lexical, SourceLinesAndBlanks) {
  constexpr ScriptRow kRows[] = {
      {"\xef\xbb\xbfPrint 1", "[1032 at 1:0]"},
      {"Print 1\rPrint 2\r\nPrint 3\nPrint 4", "1\n2\n3\n4\n"},
      {"Print 1\n\rx = @", "[1032 at 3:4]"},
      {"Print\t1\v\f", "1\n"},
      {"Print\xc2\xa0"
       "1",
       "[1032 at 1:5]"},
      {": : : Print 1 : : Print 2 ::", "1\n2\n"},
      {"If True Then :\nPrint 1\nEnd If", "1\n"},
      {"x = 1\nIf x = 1 Then : Print x", "1\n"},
      {"PRINT 1 : pRiNt 2", "1\n2\n"},
      {"<!--\nPrint 1\n-->", "[1002 at 1:0]"},
  };
  CheckScripts(kRows);
  EXPECT_EQ(Told("n = @1"), "[1032 at 1:4]");
}

TEST(Lexical, LineContinuation) {
  constexpr ScriptRow kRows[] = {
      {"x =_\n3\nPrint x", "3\n"},        {"x = 1 + _ \t\r\n  2\nPrint x", "3\n"},
      {"x_ = 1\nPrint x_", "1\n"},        {"x = 1 _x", "[1032 at 1:7]"},
      {"x = 1 _ ' why", "[1032 at 1:8]"}, {"Set r = New RegExp\nPrint r _\n.Pattern & _\n\"!\"", "!\n"},
      {"' a comment _\nPrint 1", "1\n"},  {"x = _\n_\n1\ny = @", "[1032 at 4:4]"},
  };
  CheckScripts(kRows);
}

TEST(Lexical, Comments) {
  constexpr ScriptRow kRows[] = {
      {"Print 1 ' not this : Print 2", "1\n"},
      {"Print \"a'b\"", "a'b\n"},
      {"Rem nothing : Print 2\nPrint 1 : Rem more\nREM", "1\n"},
      {"Remark = 5\nPrint Remark", "5\n"},
      {"If True Then Rem nothing\nPrint 1\nEnd If", "1\n"},
      {"Class K\nPublic [Rem]\nEnd Class\nSet o = New K\no.Rem = 3\nPrint o.Rem", "3\n"},
  };
  CheckScripts(kRows);
}

TEST(Lexical, Names) {
  constexpr ScriptRow kRows[] = {
      {"a1_b = 2\nPrint A1_B", "2\n"},
      {"s$ = 1", "[1032 at 1:1]"},
      {"n% = 1", "[1032 at 1:1]"},
      {"x = a!b", "[1032 at 1:5]"},
      {"1a = 2", "[1024 at 1:0]"},
      {"[abc] = 4\nPrint abc", "4\n"},
      {"[Dim] = 5\nPrint [dim]", "5\n"},
      {"[] = 1\n[   ] = 2\nPrint [], [   ]", "1 2\n"},
      {"[a[b] = 3\nPrint [a[b]", "3\n"},
      {"x = [[x]]", "[1032 at 1:8]"},
      {"x = [abc\n", "[1007 at 1:8]"},
      {"x = [QV_SUBJECT]\nPrint IsEmpty(x)", "True\n"},
      {"Option Explicit\nDim x\nx = [QV_SUBJECT]", "[500 at 3:0]"},
      {"Class K\nPublic Property Get [Next]()\n[Next] = 7\nEnd Property\nEnd Class\nSet o = New K\nPrint o.Next",
       "7\n"},
  };
  CheckScripts(kRows);
}

TEST(Lexical, Words) {
  for (const char* word :
       {"And",      "ByRef",      "ByVal",   "Call",   "Case",     "Class",   "Const",    "Dim",        "Do",
        "Each",     "Else",       "ElseIf",  "Empty",  "End",      "Eqv",     "Exit",     "False",      "For",
        "Function", "Get",        "GoTo",    "If",     "Imp",      "In",      "Is",       "Let",        "Loop",
        "Me",       "Mod",        "New",     "Next",   "Not",      "Nothing", "Null",     "On",         "Option",
        "Or",       "Preserve",   "Private", "Public", "ReDim",    "Rem",     "Resume",   "Select",     "Set",
        "Stop",     "Sub",        "Then",    "To",     "True",     "Until",   "WEnd",     "While",      "With",
        "Xor",      "As",         "Boolean", "Byte",   "Currency", "Debug",   "Double",   "EndIf",      "Enum",
        "Event",    "Implements", "Integer", "Like",   "Long",     "LSet",    "Optional", "ParamArray", "RaiseEvent",
        "RSet",     "Shared",     "Single",  "Static", "Type",     "TypeOf",  "Variant"}) {
    EXPECT_EQ(Told(std::string("Dim ") + word), "[1010 at 1:4]") << word;
  }
  for (const char* word : {"Default", "Error", "Explicit", "Property", "Step", "Erase", "MsgBox", "Len", "Err",
                           "vbCrLf", "Execute", "Randomize", "RegExp"}) {
    EXPECT_EQ(Told(std::string("Dim ") + word + "\n" + word + " = 4\nPrint " + word), "4\n") << word;
  }
}

TEST(Lexical, NumberLiterals) {
  constexpr struct {
    const char* literal;
    const char* value;
  } kRows[] = {
      {"32767", "32767 Integer"},
      {"32768", "32768 Long"},
      {"2147483647", "2147483647 Long"},
      {"2147483648", "2147483648 Double"},
      {"010", "10 Integer"},
      {"1e0", "1 Double"},
      {".5", "0.5 Double"},
      {"10.", "10 Double"},
      {"34e5", "3400000 Double"},
      {"1E-400", "0 Double"},
      {"4.9e-324 > 0", "True Boolean"},
      {"&H10", "16 Integer"},
      {"&HFFFF", "-1 Integer"},
      {"&H8001", "-32767 Integer"},
      {"&H8000", "-32768 Long"},
      {"&H10000", "65536 Long"},
      {"&HFFFFFFFF", "-1 Long"},
      {"&H000000000001", "1 Integer"},
      {"&HFFFF&", "65535 Long"},
      {"&HFFFFFFFF&", "-1 Integer"},
      {"&H7FFFFFFF&", "2147483647 Long"},
      {"&O17", "15 Integer"},
      {"&17", "15 Integer"},
      {"&O177777", "-1 Integer"},
      {"&O18", "!1002"},
      {"1e", "!1031"},
      {"1e309", "!1031"},
      {"-1e308 * 10", "!6"},
      {"1.5.5", "!1025"},
      {"1 2", "!1025"},
      {"1 \"a\"", "!1025"},
      {"&H123456789", "!1002"},
  };
  for (const auto& row : kRows) EXPECT_EQ(ValueOf(row.literal), row.value) << row.literal;
  EXPECT_EQ(Told("hi = \"x\"\nPrint \"a\" &hi"), "ax\n");
  EXPECT_EQ(Told("Sub Foo(x)\nPrint x * 2\nEnd Sub\nFoo.5"), "1\n");
}

TEST(Lexical, TextAndDateLiterals) {
  EXPECT_EQ(ValueOf("\"a\"\"b\""), "a\"b String");
  EXPECT_EQ(ValueOf("\"\""), " String");
  EXPECT_EQ(ValueOf("#1/2/2011#"), "1/2/2011 Date");
  EXPECT_EQ(ValueOf("#2000-1-31#"), "1/31/2000 Date");
  EXPECT_EQ(ValueOf("# 1/1/2011 #"), "1/1/2011 Date");
  EXPECT_EQ(ValueOf("#1/1/2011 13:05:06#"), "1/1/2011 1:05:06 PM Date");
  EXPECT_EQ(ValueOf("#13/45/2011#"), "!1002");
  EXPECT_EQ(ValueOf("Empty"), " Empty");
  EXPECT_EQ(ValueOf("Null"), "Null");
  EXPECT_EQ(ValueOf("True"), "True Boolean");
}

TEST(Lexical, OtherSpellingsOfOperators) {
  constexpr ScriptRow kRows[] = {
      {"Print 1 =< 1, 2 =< 1", "True False\n"},
      {"Print 1 => 1, 0 => 1", "True False\n"},
      {"Print 1 >< 1, 0 >< 1", "False True\n"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
