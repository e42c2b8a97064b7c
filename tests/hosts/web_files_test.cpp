#include <algorithm>
#include <map>

#include "hosts/web/text_files.h"
#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

// Files in memory under a folder that exists.
class MemoryFiles : public Files {
 public:
  explicit MemoryFiles(std::map<std::string, std::string>& texts) : texts_(texts) {}
  bool FileExists(const std::string& path) override { return texts_.count(path) != 0; }
  bool FolderExists(const std::string&) override { return true; }
  std::vector<std::string> FileNames(const std::string&) override { return {}; }
  std::string ReadAll(const std::string& path) override {
    if (path.find("Secret") != std::string::npos) throw RuntimeError(70, "Permission denied");
    if (!FileExists(path)) throw RuntimeError(53, "File not found");
    if (texts_[path].empty()) throw RuntimeError(62, "Input past end of file");
    return texts_[path];
  }
  void Write(const std::string& path, const std::string& text) override {
    if (path.find("nowhere") != std::string::npos) throw RuntimeError(76, "Path not found");
    texts_[path] = text;
  }
  void Delete(const std::string&) override {}
  void Rename(const std::string&, const std::string&) override {}

 private:
  std::map<std::string, std::string>& texts_;
};

constexpr const char* kPath = R"(/data\filters\patterns\QVFILTER-Words.TXT)";
constexpr const char* kJsonPath = R"(/data\\filters\\patterns\\QVFILTER-Words.TXT)";

class TextFiles : public ::testing::Test {
 protected:
  std::string Ask(const std::string& message) {
    return AnswerFileMessage([this] { return std::make_unique<MemoryFiles>(texts_); }, message);
  }
  std::string Read(const std::string& path = kJsonPath) {
    return Ask(R"({"file":"read","path":")" + path + R"(","id":7})");
  }
  std::string Write(const std::string& text, const std::string& version, const std::string& path = kJsonPath) {
    return Ask(R"({"file":"write","path":")" + path + R"(","text":")" + text + R"(","version":")" + version +
               R"(","id":8})");
  }
  // The version in an answer.
  static std::string Version(const std::string& answer) {
    const auto at = answer.find(R"("version":")") + 11;
    return answer.substr(at, answer.find('"', at) - at);
  }
  static std::string File(const std::string& members) {
    return R"({"file":{"path":")" + std::string(kJsonPath) + R"(",)" + members + "}";
  }

  std::map<std::string, std::string> texts_;
};

TEST_F(TextFiles, AFileIsReadAsItStands) {
  texts_[kPath] = "one\r\ntwo";
  const std::string version = Version(Read());
  EXPECT_EQ(Read(), File(R"("text":"one\r\ntwo","version":")" + version + R"(","exists":true},"id":7)"));
  EXPECT_NE(version, "");
  texts_[kPath] = "one\r\ntwp";
  EXPECT_NE(Version(Read()), version);
  texts_[kPath] = "";
  EXPECT_EQ(Read(), File(R"("text":"","version":")" + Version(Read()) + R"(","exists":true},"id":7)"));
  EXPECT_NE(Version(Read()), "");
}

TEST_F(TextFiles, AMissingFileIsEmptyAndCanBeMade) {
  EXPECT_EQ(Read(), File(R"("text":"","version":"","exists":false},"id":7)"));
  const std::string answer = Write(R"(a\nb\r\nc\rd)", "");
  EXPECT_EQ(texts_[kPath], "a\r\nb\r\nc\r\nd");
  EXPECT_EQ(answer, File(R"("version":")" + Version(Read()) + R"("},"id":8)"));
}

TEST_F(TextFiles, LineEndsAreKept) {
  texts_[kPath] = "one\r\ntwo\r\n";
  Write(R"(one\nthree\n)", Version(Read()));
  EXPECT_EQ(texts_[kPath], "one\r\nthree\r\n");
  texts_[kPath] = "one\ntwo\n";
  Write(R"(one\nthree\n)", Version(Read()));
  EXPECT_EQ(texts_[kPath], "one\nthree\n");
  Write("", Version(Read()));
  EXPECT_EQ(texts_[kPath], "");
}

TEST_F(TextFiles, AFileThatHasChangedIsNotOverwritten) {
  texts_[kPath] = "one";
  const std::string old = Version(Read());
  texts_[kPath] = "another's";
  const std::string current = Version(Read());
  EXPECT_EQ(Write("mine", old), File(R"("conflict":{"text":"another's","version":")" + current + R"("}},"id":8)"));
  EXPECT_EQ(texts_[kPath], "another's");
  const std::string mine = Version(Write("mine", current));
  EXPECT_EQ(mine, Version(Read()));
  EXPECT_EQ(texts_[kPath], "mine");
  // The same again, as after a lost answer, is no conflict.
  EXPECT_EQ(Write("mine", current), File(R"("version":")" + Version(Read()) + R"("},"id":8)"));
  texts_.clear();
  EXPECT_EQ(Write("more", current), File(R"("conflict":{"text":"","version":""}},"id":8)"));
  EXPECT_TRUE(texts_.empty());
}

TEST_F(TextFiles, ACharacterThatTheServerLacksIsToldBeforeAnythingIsWritten) {
  texts_[kPath] = "one";
  const std::string version = Version(Read());
  EXPECT_EQ(
      Write(R"(good\nbad )"
            "\xD0\x96",
            version),
      "{\"error\":\"Nothing has been saved: line 2 holds the character \xD0\x96 (U+0416), and the server's files hold "
      "Western European characters (code page 1252) only.\",\"id\":8}");
  EXPECT_EQ(texts_[kPath], "one");
  for (const char* lacking : {R"(\ud83d\ude00)", R"(\u0080)", R"(\u009f)", R"(\u0100)", R"(\u20ad)"}) {
    Write(lacking, version);
    EXPECT_EQ(texts_[kPath], "one") << lacking;
  }
  // Euro, the Y with two dots, an open position, and both ends of the upper half.
  Write(R"(\u20ac\u0178\u0081\u00a0\u00ff)", version);
  EXPECT_EQ(texts_[kPath], "\xE2\x82\xAC\xC5\xB8\xC2\x81\xC2\xA0\xC3\xBF");
}

TEST_F(TextFiles, OnlyWordFilesAndTemplatesAreEdited) {
  const std::string refused = R"({"error":"Only word files and templates can be edited here: QVFILTER-*.TXT.","id":7})";
  for (const char* path : {R"(/data\\quillvane.db)", R"(/data\\QVFILTER-a.QVS)", R"(/data\\xQVFILTER-a.TXT)",
                           R"(/data\\qvfilter-a.TXT)", R"(QVFILTER-a.TXT)", R"(/data/QVFILTER-a.TXT)",
                           R"(/data\\QVFILTER-a.TXT\\x)", R"(/data\\QVFILTER-/../a.TXT)", R"(/data\\QVFILTER-TXT)", ""})
    EXPECT_EQ(Read(path), refused) << path;
  EXPECT_NE(Read(R"(/data\\QVFILTER-a.txt)"), refused);
  EXPECT_NE(Read(R"(/data\\QVFILTER-.tXt)"), refused);
  Write("x", "", R"(/data\\other.txt)");
  EXPECT_TRUE(texts_.empty());
}

TEST_F(TextFiles, FailuresAreTold) {
  EXPECT_EQ(Read(R"(/data\\Secret\\QVFILTER-a.TXT)"), R"({"error":"Permission denied","id":7})");
  EXPECT_EQ(Write("x", "", R"(/nowhere\\QVFILTER-a.TXT)"), R"({"error":"Path not found","id":8})");
  EXPECT_EQ(Ask(R"({"file":"delete","path":"x","id":"a"})"), R"({"error":"file is to be read or write.","id":"a"})");
  EXPECT_EQ(Ask(R"({"file":1})"), R"({"error":"file is to be a text."})");
  EXPECT_EQ(Ask(R"({"file":"read","id":null})"), R"({"error":"path is to be a text.","id":null})");
  EXPECT_EQ(Ask(R"({"file":"write","path":"\\QVFILTER-a.TXT","version":""})"), R"({"error":"text is to be a text."})");
  EXPECT_EQ(AnswerFileMessage([]() -> std::unique_ptr<Files> { throw RuntimeError("No files today."); },
                              R"({"file":"read","path":"\\QVFILTER-a.TXT","id":1})"),
            R"({"error":"No files today.","id":1})");
  texts_[kPath] = std::string(600 << 10, 'x');
  EXPECT_EQ(Read(), R"({"error":"The file is too large to be edited here: 600 KB, at most 512 KB.","id":7})");
}

TEST(FileMessages, AreToldFromEvents) {
  EXPECT_TRUE(IsFileMessage(R"({"file":"read","path":"x"})"));
  EXPECT_TRUE(IsFileMessage(R"( { "id" : 1, "file" : 2 } )"));
  EXPECT_FALSE(IsFileMessage(R"({"do":"set","text":"\"file\""})"));
  EXPECT_FALSE(IsFileMessage(R"({"do":{"file":"read"}})"));
  EXPECT_FALSE(IsFileMessage(R"(["file"])"));
  EXPECT_FALSE(IsFileMessage(R"({"file":"read")"));
  EXPECT_TRUE(IsStopMessage(R"({"stop":true})"));
  EXPECT_FALSE(IsStopMessage(R"({"stop":1})"));
  EXPECT_FALSE(IsStopMessage(R"({"do":"stop"})"));
}

class FileMessagesOverASocket : public WebTest {};

TEST_F(FileMessagesOverASocket, PassTheSessionByAlsoWhileItIsBusy) {
  std::map<std::string, std::string> texts{{kPath, "words"}};
  std::atomic<bool> go{false};
  Start(
      {},
      [&go](Carrier& carrier) {
        carrier.Send("first");
        while (const auto message = carrier.Receive()) {
          while (!go) std::this_thread::sleep_for(std::chrono::milliseconds(1));
          carrier.Send(*message);
        }
      },
      [&texts] { return std::make_unique<MemoryFiles>(texts); });
  WebClient client(port());
  ASSERT_EQ(client.Upgrade(LetIn()).status, 101);
  EXPECT_EQ(client.ReadText(), "first");
  client.SendText("event");
  const std::string ask = R"({"file":"read","path":")" + std::string(kJsonPath) + R"(","id":3})";
  client.SendText(ask);
  const std::string answer = client.ReadText();
  EXPECT_NE(answer.find(R"("text":"words")"), std::string::npos) << answer;
  EXPECT_NE(answer.find(R"("id":3)"), std::string::npos) << answer;
  go = true;
  EXPECT_EQ(client.ReadText(), "event");
  // As many at a time as a browser has windows.
  for (int round = 0; round < 3; ++round) {
    for (int i = 0; i < 8; ++i) client.SendText(ask);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(client.ReadText(), answer);
  }
}

}  // namespace
}  // namespace qv::testing
