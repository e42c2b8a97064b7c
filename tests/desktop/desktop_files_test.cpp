#include "desktop/desktop_files.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>

#include "platform/runtime_error.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

// A registry of one value.
class OneValueRegistry : public Registry {
 public:
  explicit OneValueRegistry(std::optional<RegistryValue>& value) : value_(value) {}
  std::optional<RegistryValue> Read(const std::string& key, const std::string& value_name) override {
    if (key == R"(SOFTWARE\Quillvane\Quillvane)" && value_name == "Configuration Directory") return value_;
    return std::nullopt;
  }
  void Write(const std::string&, const std::string&, const RegistryValue&) override { FAIL(); }

 private:
  std::optional<RegistryValue>& value_;
};

class DesktopFilesTest : public testing::Test {
 protected:
  DesktopFilesTest() {
    fs::create_directories(root / "Filters" / "Criteria");
    Point(root.string());
    Put(outside.path() / "secret.txt", "secret");
  }

  void Point(const std::string& text) { value = RegistryValue{RegistryKind::String, 0, text}; }
  static void Put(const fs::path& path, const std::string& bytes) { std::ofstream(path, std::ios::binary) << bytes; }
  static std::string Bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }
  static std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  std::string Path(const std::string& below) const { return root.string() + below; }

  // The number that a step raises; 0 for none.
  static long Raised(const std::function<void()>& step) {
    try {
      step();
    } catch (const RuntimeError& error) {
      return error.number();
    }
    return 0;
  }

  TemporaryDirectory directory, outside;
  fs::path root = directory.path() / "config";
  std::optional<RegistryValue> value;
  DesktopFiles files{std::make_unique<OneValueRegistry>(value)};
};

TEST_F(DesktopFilesTest, WritingReadingAndReplacing) {
  const std::string path = Path(R"(\Filters\Criteria\CRT1.QVS)");
  EXPECT_FALSE(files.FileExists(path));
  files.Write(path, "Grüße\r\n€Ω");
  EXPECT_TRUE(files.FileExists(path));
  EXPECT_EQ(Bytes(root / "Filters/Criteria/CRT1.QVS"),
            "Gr\xFC\xDF"
            "e\r\n\x80?");
  EXPECT_EQ(files.ReadAll(path), "Grüße\r\n€?");
  files.Write(path, "short");
  EXPECT_EQ(Bytes(root / "Filters/Criteria/CRT1.QVS"), "short");
  files.Write(path, "");
  EXPECT_TRUE(files.FileExists(path));
  EXPECT_EQ(Raised([&] { files.ReadAll(path); }), 62);
}

TEST_F(DesktopFilesTest, LargeTexts) {
  std::string text;
  for (int i = 0; i < 300000; ++i) text += static_cast<char>('a' + i % 26);
  files.Write(Path(R"(\large.txt)"), text);
  EXPECT_EQ(files.ReadAll(Path(R"(\large.txt)")), text);
}

TEST_F(DesktopFilesTest, NamesAreFoundWithoutRegardToCase) {
  files.Write(Path(R"(\FILTERS\criteria\Crt1.qvs)"), "one");
  EXPECT_TRUE(fs::exists(root / "Filters/Criteria/Crt1.qvs")) << "a new file keeps its spelling";
  EXPECT_EQ(files.ReadAll(Path(R"(\filters\CRITERIA\CRT1.QVS)")), "one");
  files.Write(Path(R"(\Filters\Criteria\CRT1.QVS)"), "two");
  EXPECT_EQ(Bytes(root / "Filters/Criteria/Crt1.qvs"), "two");
  EXPECT_FALSE(fs::exists(root / "Filters/Criteria/CRT1.QVS"));
  EXPECT_TRUE(files.FolderExists(Path(R"(\fIlTeRs)")));
  Put(root / "ÄÖÜ é.txt", "umlauts");
  EXPECT_EQ(files.ReadAll(Path("\\äöü É.TXT")), "umlauts");
}

TEST_F(DesktopFilesTest, AnExactNameWinsThenTheFirstInSortedOrder) {
  Put(root / "a.txt", "lower");
  Put(root / "A.TXT", "upper");
  Put(root / "A.txt", "mixed");
  EXPECT_EQ(files.ReadAll(Path(R"(\a.txt)")), "lower");
  EXPECT_EQ(files.ReadAll(Path(R"(\A.txt)")), "mixed");
  EXPECT_EQ(files.ReadAll(Path(R"(\a.TXT)")), "upper");
}

TEST_F(DesktopFilesTest, FilesAndFoldersAreToldApart) {
  Put(root / "file", "x");
  EXPECT_TRUE(files.FileExists(Path(R"(\file)")));
  EXPECT_FALSE(files.FolderExists(Path(R"(\file)")));
  EXPECT_FALSE(files.FileExists(Path(R"(\Filters)")));
  EXPECT_TRUE(files.FolderExists(Path(R"(\Filters)")));
  EXPECT_TRUE(files.FolderExists(Path("")));
  EXPECT_FALSE(files.FileExists(Path("")));
  EXPECT_FALSE(files.FileExists(Path(R"(\file\x)")));
  EXPECT_EQ(Raised([&] { files.ReadAll(Path(R"(\Filters)")); }), 53);
  EXPECT_EQ(Raised([&] { files.Write(Path(R"(\Filters)"), "x"); }), 70);
  EXPECT_EQ(Raised([&] { files.Delete(Path(R"(\Filters)")); }), 53);
}

TEST_F(DesktopFilesTest, FileNamesAreSortedAndHoldNoFolders) {
  Put(root / "Filters/b.txt", "");
  Put(root / "Filters/A.txt", "");
  Put(root / "Filters/C.txt", "");
  fs::create_symlink(outside.path() / "secret.txt", root / "Filters/link.txt");
  EXPECT_THAT(files.FileNames(Path(R"(\filters)")), ElementsAre("A.txt", "b.txt", "C.txt"));
  EXPECT_TRUE(files.FileNames(Path("")).empty());
  EXPECT_EQ(Raised([&] { files.FileNames(Path(R"(\none)")); }), 76);
  EXPECT_EQ(Raised([&] { files.FileNames(Path(R"(\..)")); }), 76);
}

TEST_F(DesktopFilesTest, MissingFilesAndFolders) {
  EXPECT_EQ(Raised([&] { files.ReadAll(Path(R"(\none.txt)")); }), 53);
  EXPECT_EQ(Raised([&] { files.ReadAll(Path(R"(\none\none.txt)")); }), 53);
  EXPECT_EQ(Raised([&] { files.Write(Path(R"(\none\x.txt)"), "x"); }), 76);
  EXPECT_EQ(Raised([&] { files.Delete(Path(R"(\none.txt)")); }), 53);
  EXPECT_EQ(Raised([&] { files.Rename(Path(R"(\none.txt)"), Path(R"(\x.txt)")); }), 53);
}

TEST_F(DesktopFilesTest, DeletingAndRenaming) {
  Put(root / "Filters/Criteria/CRT1.QV_", "text");
  Put(root / "taken.txt", "taken");
  EXPECT_EQ(Raised([&] { files.Rename(Path(R"(\filters\criteria\crt1.qv_)"), Path(R"(\TAKEN.txt)")); }), 58);
  EXPECT_EQ(Raised([&] { files.Rename(Path(R"(\filters\criteria\crt1.qv_)"), Path(R"(\none\x)")); }), 76);
  EXPECT_EQ(Raised([&] { files.Rename(Path(R"(\filters\criteria\crt1.qv_)"), Path(R"(\..\x)")); }), 52);
  files.Rename(Path(R"(\filters\criteria\crt1.qv_)"), Path(R"(\Filters\Criteria\CRT1.QVS)"));
  EXPECT_FALSE(fs::exists(root / "Filters/Criteria/CRT1.QV_"));
  EXPECT_EQ(Bytes(root / "Filters/Criteria/CRT1.QVS"), "text");
  files.Delete(Path(R"(\Filters\Criteria\crt1.qvs)"));
  EXPECT_FALSE(fs::exists(root / "Filters/Criteria/CRT1.QVS"));
}

TEST_F(DesktopFilesTest, NoPathLeadsOut) {
  Put(directory.path() / "beside.txt", "beside");
  Put(directory.path() / "config-other", "other");
  const std::string paths[] = {
      Path(R"(\..\beside.txt)"),
      Path(R"(\Filters\..\..\beside.txt)"),
      Path(R"(\.\Filters)"),
      Path(R"(\\Filters)"),
      Path(R"(\Filters\\Criteria)"),
      Path(R"(\Filters\)"),
      Path("\\"),
      Path("\\../beside.txt"),
      Path("\\Filters/Criteria"),
      Path("/Filters/Criteria"),
      Path("/../beside.txt"),
      Path("-other"),
      (directory.path() / "beside.txt").string(),
      directory.path().string() + R"(\beside.txt)",
      R"(\Filters\Criteria)",
      R"(C:\Filters)",
      Path(R"(\C:\Filters)"),
      "/etc/passwd",
      R"(\etc\passwd)",
      "",
      Path(std::string("\\Filters\0x", 10)),
      Path("\\Filters\nx"),
      Path("\\Filters\x7F"),
      Path("\\Filters\xFF"),
      Path("\\" + std::string(300, 'x')),
  };
  for (const std::string& path : paths) {
    EXPECT_FALSE(files.FileExists(path)) << path;
    EXPECT_FALSE(files.FolderExists(path)) << path;
    EXPECT_EQ(Raised([&] { files.ReadAll(path); }), 53) << path;
    EXPECT_EQ(Raised([&] { files.Delete(path); }), 53) << path;
    EXPECT_THAT(Raised([&] { files.Write(path, "x"); }), testing::AnyOf(52, 76)) << path;
  }
  EXPECT_EQ(Raised([&] { files.Write(Path(R"(\..\beside.txt)"), "x"); }), 52);
  EXPECT_EQ(Raised([&] { files.Write("/etc/none", "x"); }), 76);
  EXPECT_EQ(Bytes(directory.path() / "beside.txt"), "beside");
}

TEST_F(DesktopFilesTest, LinksAreNotFollowed) {
  fs::create_symlink(outside.path() / "secret.txt", root / "link.txt");
  fs::create_directory_symlink(outside.path(), root / "linked");
  fs::create_directory_symlink(root / "Filters", root / "inside");
  fs::create_symlink(root / "missing", root / "dangling.txt");
  for (const char* below : {R"(\link.txt)", R"(\linked\secret.txt)", R"(\dangling.txt)"}) {
    EXPECT_FALSE(files.FileExists(Path(below))) << below;
    EXPECT_EQ(Raised([&] { files.ReadAll(Path(below)); }), 53) << below;
    EXPECT_THAT(Raised([&] { files.Write(Path(below), "x"); }), testing::AnyOf(70, 76)) << below;
    EXPECT_EQ(Raised([&] { files.Delete(Path(below)); }), 53) << below;
  }
  EXPECT_FALSE(files.FolderExists(Path(R"(\linked)")));
  EXPECT_FALSE(files.FolderExists(Path(R"(\inside)")));
  EXPECT_EQ(Raised([&] { files.FileNames(Path(R"(\linked)")); }), 76);
  EXPECT_FALSE(fs::exists(root / "missing"));
  EXPECT_EQ(Bytes(outside.path() / "secret.txt"), "secret");
}

TEST_F(DesktopFilesTest, DevicesPipesAndSocketsAreNoFiles) {
  ASSERT_EQ(::mkfifo((root / "pipe").c_str(), 0666), 0);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  (root / "socket").string().copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  for (const char* below : {R"(\pipe)", R"(\socket)"}) {
    EXPECT_FALSE(files.FileExists(Path(below)));
    EXPECT_EQ(Raised([&] { files.ReadAll(Path(below)); }), 53);
    EXPECT_EQ(Raised([&] { files.Write(Path(below), "x"); }), 70);
  }
  ::close(socket);
  EXPECT_TRUE(files.FileNames(Path("")).empty());
}

TEST_F(DesktopFilesTest, AChangedValueCountsAtOnce) {
  fs::create_directories(directory.path() / "other" / "Sub");
  Put(directory.path() / "other" / "x.txt", "other");
  const std::string before = Path(R"(\Filters)");
  EXPECT_TRUE(files.FolderExists(before));
  Point((directory.path() / "other").string());
  EXPECT_FALSE(files.FolderExists(before));
  EXPECT_EQ(files.ReadAll((directory.path() / "other").string() + R"(\X.TXT)"), "other");
  value.reset();
  EXPECT_FALSE(files.FolderExists(before));
}

TEST_F(DesktopFilesTest, ATrailingSlashOfTheValue) {
  Point(root.string() + "/");
  EXPECT_TRUE(files.FolderExists(root.string() + R"(/\Filters)"));
  EXPECT_TRUE(files.FolderExists(root.string() + R"(\Filters)"));
  EXPECT_FALSE(files.FolderExists(root.string() + R"(//\Filters)"));
}

TEST_F(DesktopFilesTest, ValuesThatAreNoDirectory) {
  for (const std::string& text : {std::string(), std::string("/"), std::string("///"), std::string("config"),
                                  std::string(R"(C:\Config)"), directory.path().string() + "/none"}) {
    Point(text);
    EXPECT_FALSE(files.FolderExists(text + R"(\Filters)")) << text;
    EXPECT_FALSE(files.FolderExists(text + R"(\etc)")) << text;
    EXPECT_FALSE(files.FolderExists(text)) << text;
  }
  value = RegistryValue{RegistryKind::Word, 1, root.string()};
  EXPECT_FALSE(files.FolderExists(Path(R"(\Filters)")));
}

TEST_F(DesktopFilesTest, TheRestOfThePrefixCountsExactly) {
  std::string other_case = root.string();
  other_case.back() = 'G';
  EXPECT_FALSE(files.FolderExists(other_case + R"(\Filters)"));
}

// In a process of its own, whose files may hold 100 bytes.
[[noreturn]] void WriteWithLimit(DesktopFiles& files, const std::string& path) {
  ::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{100, 100};
  ::setrlimit(RLIMIT_FSIZE, &limit);
  try {
    files.Write(path, std::string(1000, 'x'));
  } catch (const RuntimeError& error) {
    std::cerr << error.number() << " " << error.description() << std::flush;
  }
  ::_exit(0);
}

TEST_F(DesktopFilesTest, AFullDisk) {
  EXPECT_EXIT(WriteWithLimit(files, Path(R"(\x.txt)")), testing::ExitedWithCode(0), "61 Disk full");
}

TEST_F(DesktopFilesTest, AFullDiskLeavesTheOldTextAndNothingElse) {
  files.Write(Path(R"(\Filters\x.txt)"), "the old text");
  EXPECT_EXIT(WriteWithLimit(files, Path(R"(\Filters\x.txt)")), testing::ExitedWithCode(0), "61 Disk full");
  EXPECT_EQ(Bytes(root / "Filters/x.txt"), "the old text");
  EXPECT_THAT(NamesIn(root / "Filters"), ElementsAre("Criteria", "x.txt"));
}

TEST_F(DesktopFilesTest, AReplacedFileKeepsItsRightsAndOwner) {
  Put(root / "Filters/x.txt", "old");
  ::chmod((root / "Filters/x.txt").c_str(), 0640);
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown((root / "Filters/x.txt").c_str(), 65534, 65534), 0);
  }
  struct stat before {
  }, after{};
  ASSERT_EQ(::stat((root / "Filters/x.txt").c_str(), &before), 0);
  files.Write(Path(R"(\Filters\x.txt)"), "new");
  ASSERT_EQ(::stat((root / "Filters/x.txt").c_str(), &after), 0);
  EXPECT_EQ(Bytes(root / "Filters/x.txt"), "new");
  EXPECT_EQ(after.st_mode, before.st_mode);
  EXPECT_EQ(after.st_uid, before.st_uid);
  EXPECT_EQ(after.st_gid, before.st_gid);
}

// Whoever has the old file open goes on reading the old text.
TEST_F(DesktopFilesTest, AReaderNeverSeesHalfAText) {
  files.Write(Path(R"(\Filters\x.txt)"), "the old text");
  std::ifstream reader(root / "Filters/x.txt");
  files.Write(Path(R"(\Filters\x.txt)"), "new");
  std::string text;
  std::getline(reader, text);
  EXPECT_EQ(text, "the old text");
  EXPECT_EQ(Bytes(root / "Filters/x.txt"), "new");
}

[[noreturn]] void WriteAsNobody(DesktopFiles& files, const std::string& path) {
  if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
  std::string numbers;
  const auto try_it = [&](const std::function<void()>& step) {
    try {
      step();
    } catch (const RuntimeError& error) {
      numbers += std::to_string(error.number()) + " ";
    }
  };
  try_it([&] { files.Write(path + R"(\Filters\there.txt)", "x"); });
  try_it([&] { files.Write(path + R"(\Filters\new.txt)", "x"); });
  try_it([&] { files.Delete(path + R"(\Filters\there.txt)"); });
  try_it([&] { files.Rename(path + R"(\Filters\there.txt)", path + R"(\Filters\new.txt)"); });
  try_it([&] { files.ReadAll(path + R"(\Filters\there.txt)"); });
  std::cerr << numbers << std::flush;
  ::_exit(0);
}

TEST_F(DesktopFilesTest, DeniedPermission) {
  ::chmod(directory.path().c_str(), 0755);
  Put(root / "Filters/there.txt", "x");
  ::chmod((root / "Filters/there.txt").c_str(), 0000);
  ::chmod((root / "Filters").c_str(), 0555);
  EXPECT_EXIT(WriteAsNobody(files, root.string()), testing::ExitedWithCode(0), "70 70 70 70 70 ");
  ::chmod((root / "Filters").c_str(), 0755);
}

[[noreturn]] void WriteOneAsNobody(DesktopFiles& files, const std::string& path) {
  if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
  files.Write(path, "in place");
  ::_exit(0);
}

TEST_F(DesktopFilesTest, AFileThatMayBeWrittenInAFolderThatMayNot) {
  ::chmod(directory.path().c_str(), 0755);
  Put(root / "Filters/there.txt", "some longer text");
  ::chmod((root / "Filters/there.txt").c_str(), 0666);
  ::chmod((root / "Filters").c_str(), 0555);
  EXPECT_EXIT(WriteOneAsNobody(files, Path(R"(\Filters\there.txt)")), testing::ExitedWithCode(0), "");
  EXPECT_EQ(Bytes(root / "Filters/there.txt"), "in place");
  ::chmod((root / "Filters").c_str(), 0755);
}

}  // namespace
}  // namespace qv
