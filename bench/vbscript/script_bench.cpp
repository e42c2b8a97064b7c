// The script engine's time against that of Lua 5.4 for the same work, in the same run on the same machine.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

#include <lua.hpp>

#include "vbscript/engine.h"

namespace {

using qv::vbscript::Engine;

struct Case {
  const char* name;
  const char* script;
  const char* lua;
};

constexpr double kMostRatio = 1.5;  // times Lua's time
constexpr double kMostCheckMilliseconds = 10;
constexpr int kRounds = 7;

// Each leaves its result in `result`, so that both can be seen to have done the same.
constexpr Case kCases[] = {
    {"integer adds",
     "Function Work()\nDim i, s\ns = 0\nFor i = 1 To 5000000\ns = s + 3\nIf s > 1000000 Then s = s - 1000000\nNext\n"
     "Work = s\nEnd Function\nresult = Work()",
     "local s = 0\nfor i = 1, 5000000 do s = s + 3 if s > 1000000 then s = s - 1000000 end end\nresult = s"},
    {"integer adds, global",
     "s = 0\nFor i = 1 To 5000000\ns = s + 3\nIf s > 1000000 Then s = s - 1000000\nNext\nresult = s",
     "s = 0\nfor i = 1, 5000000 do s = s + 3 if s > 1000000 then s = s - 1000000 end end\nresult = s"},
    {"while loop",
     "Function Work()\nDim i, s\ni = 0\ns = 0\nWhile i < 5000000\ns = s + 1\ni = i + 1\nWend\nWork = s\nEnd Function\n"
     "result = Work()",
     "local i, s = 0, 0\nwhile i < 5000000 do s = s + 1 i = i + 1 end\nresult = s"},
    {"procedure calls",
     "Function Add(a, b)\nAdd = a + b\nEnd Function\nFunction Work()\nDim i, s\ns = 0\nFor i = 1 To 2000000\n"
     "s = Add(s, 1)\nNext\nWork = s\nEnd Function\nresult = Work()",
     "local function add(a, b) return a + b end\nlocal s = 0\nfor i = 1, 2000000 do s = add(s, 1) end\nresult = s"},
    {"recursion",
     "Function Fib(n)\nIf n < 2 Then\nFib = n\nElse\nFib = Fib(n - 1) + Fib(n - 2)\nEnd If\nEnd Function\n"
     "result = Fib(27)",
     "local function fib(n) if n < 2 then return n else return fib(n - 1) + fib(n - 2) end end\nresult = fib(27)"},
    {"string building",
     "Function Work()\nDim i, s\ns = \"\"\nFor i = 1 To 100000\ns = s & \"piece \" & i & \";\"\nNext\nWork = Len(s)\n"
     "End Function\nresult = Work()",
     "local t = {}\nfor i = 1, 100000 do t[#t + 1] = 'piece ' .. i .. ';' end\nresult = #table.concat(t)"},
    {"InStr on 100 KB",
     "Function Work()\nDim i, s, n\ns = Replace(Space(2380), \" \", \"The quick brown fox jumps over the dog. \") & "
     "\"needle\"\nn = 0\nFor i = 1 To 500\nn = n + InStr(1 + i, s, \"needle\")\nNext\nWork = n\nEnd Function\n"
     "result = Work()",
     "local s = ('The quick brown fox jumps over the dog. '):rep(2380) .. 'needle'\nlocal n = 0\n"
     "for i = 1, 500 do n = n + s:find('needle', 1 + i, true) end\nresult = n"},
    {"InStr, one letter",
     "Function Work()\nDim i, s, n\ns = String(99990, \"a\") & \"needle\"\nn = 0\nFor i = 1 To 2000\n"
     "n = n + InStr(1 + i, s, \"needle\")\nNext\nWork = n\nEnd Function\nresult = Work()",
     "local s = ('a'):rep(99990) .. 'needle'\nlocal n = 0\n"
     "for i = 1, 2000 do n = n + s:find('needle', 1 + i, true) end\nresult = n"},
    {"Replace on 100 KB",
     "Function Work()\nDim i, s, n\ns = Replace(Space(10000), \" \", \"some words\")\nn = 0\nFor i = 1 To 100\n"
     "n = n + Len(Replace(s, \"words\", \"letters\"))\nNext\nWork = n\nEnd Function\nresult = Work()",
     "local s = ('some words'):rep(10000)\nlocal n = 0\n"
     "for i = 1, 100 do n = n + #s:gsub('words', 'letters') end\nresult = n"},
    {"array sums",
     "Function Work()\nDim a(9999), i, k, s\nFor i = 0 To 9999\na(i) = i Mod 100\nNext\nFor k = 1 To 200\ns = 0\n"
     "For i = 0 To 9999\ns = s + a(i)\nNext\nNext\nWork = s\nEnd Function\nresult = Work()",
     "local a = {}\nfor i = 1, 10000 do a[i] = (i - 1) % 100 end\nlocal s\n"
     "for k = 1, 200 do s = 0 for i = 1, 10000 do s = s + a[i] end end\nresult = s"},
    {"Select Case",
     "Function Work()\nDim i, s\ns = 0\nFor i = 1 To 2000000\nSelect Case i Mod 8\nCase 0\ns = s + 1\nCase 1\ns = s + "
     "2\n"
     "Case 2, 3\ns = s + 3\nCase 4\ns = s + 4\nCase Else\ns = s - 1\nEnd Select\nNext\nWork = s\nEnd Function\n"
     "result = Work()",
     "local s = 0\nfor i = 1, 2000000 do\nlocal v = i % 8\nif v == 0 then s = s + 1\nelseif v == 1 then s = s + 2\n"
     "elseif v == 2 or v == 3 then s = s + 3\nelseif v == 4 then s = s + 4\nelse s = s - 1 end\nend\nresult = s"},
};

double Milliseconds(std::chrono::steady_clock::time_point from) {
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count();
}

double TimeScript(const Case& work, std::string& result) {
  Engine engine({});
  const auto start = std::chrono::steady_clock::now();
  const auto error = engine.AddCode(work.script);
  const double taken = Milliseconds(start);
  if (error) std::printf("%s: %s\n", work.name, error->description.c_str());
  engine.Eval("CStr(result)", result);
  return taken;
}

double TimeLua(const Case& work, std::string& result) {
  lua_State* lua = luaL_newstate();
  luaL_openlibs(lua);
  const auto start = std::chrono::steady_clock::now();
  const bool failed = luaL_dostring(lua, work.lua) != 0;
  const double taken = Milliseconds(start);
  if (failed) std::printf("%s: %s\n", work.name, lua_tostring(lua, -1));
  lua_getglobal(lua, "result");
  result = luaL_tolstring(lua, -1, nullptr);
  lua_close(lua);
  return taken;
}

// A text of at least 100 KB such as people write them.
std::string LongScript() {
  std::string text;
  for (int i = 0; text.size() < 100 * 1024; ++i) {
    const std::string n = std::to_string(i);
    text += "Function Check" + n + "(subject, sender)\r\n  Dim found, i\r\n  found = False\r\n";
    text += "  For i = 1 To Len(subject)\r\n    If Mid(subject, i, 3) = \"abc\" And Not found Then found = True\r\n";
    text +=
        "  Next ' the next character\r\n  Select Case LCase(sender)\r\n    Case \"a@example.com\", "
        "\"b@example.com\"\r\n";
    text += "      found = found Or InStr(1, subject, \"word" + n + "\", vbTextCompare) > 0\r\n    Case Else\r\n";
    text += "      found = (" + n + " + 4) * 2 > 100\r\n  End Select\r\n  Check" + n + " = found\r\nEnd Function\r\n";
  }
  return text;
}

}  // namespace

int main() {
  int over = 0;
  std::printf("%-22s %12s %12s %8s\n", "work", "script ms", "Lua 5.4 ms", "ratio");
  for (const Case& work : kCases) {
    double script = 1e9;
    double lua = 1e9;
    std::string script_result;
    std::string lua_result;
    for (int round = 0; round < kRounds; ++round) {
      script = std::min(script, TimeScript(work, script_result));
      lua = std::min(lua, TimeLua(work, lua_result));
    }
    const double ratio = script / lua;
    over += ratio > kMostRatio || script_result != lua_result ? 1 : 0;
    std::printf("%-22s %12.2f %12.2f %8.2f%s%s\n", work.name, script, lua, ratio, ratio > kMostRatio ? "  OVER" : "",
                script_result == lua_result ? "" : "  DIFFERENT RESULTS");
  }
  const std::string text = LongScript();
  double check = 1e9;
  for (int round = 0; round < kRounds; ++round) {
    Engine engine({});
    const auto start = std::chrono::steady_clock::now();
    const auto error = engine.Check(text);
    check = std::min(check, Milliseconds(start));
    if (error) {
      std::printf("check: %s\n", error->description.c_str());
      return 1;
    }
  }
  over += check > kMostCheckMilliseconds ? 1 : 0;
  std::printf("check of %zu bytes: %.2f ms%s\n", text.size(), check, check > kMostCheckMilliseconds ? "  OVER" : "");
  return over == 0 ? 0 : 1;
}
