#include "platform/qt/QtUserDefaults.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <vector>

#include "tests/contract/UserFilesContract.h"

namespace tilwin::contract {
namespace {

namespace fs = std::filesystem;

class KeptLog : public SystemLog {
public:
  void write(std::string_view line) override { lines.emplace_back(line); }
  std::vector<std::string> lines;
};

/// A user with a home folder of their own.
class QtUserDefaultsWorld : public UserDefaultsWorld {
public:
  QtUserDefaultsWorld() {
    setenv("XDG_CONFIG_HOME", config().c_str(), 1);
    restart();
  }
  ~QtUserDefaultsWorld() override { setDiskFull(false); }
  QtUserDefaultsWorld(const QtUserDefaultsWorld&) = delete;
  QtUserDefaultsWorld& operator=(const QtUserDefaultsWorld&) = delete;

  UserDefaults& defaults() override { return *defaults_; }
  void restart() override { defaults_.emplace(log); }
  /// A file may have no more than no bytes; unlike permissions, this holds for root too.
  void setDiskFull(bool full) override {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = full ? 0 : limit.rlim_max;
    setrlimit(RLIMIT_FSIZE, &limit);
  }

  fs::path config() const { return home_.path().toStdString(); }
  fs::path file() const { return config() / "Tilwin" / "Tilwin.conf"; }
  fs::path kept() const { return config() / "Tilwin" / "Tilwin.conf.unreadable"; }
  std::string fileText() const { return textOf(file()); }
  std::string keptText() const { return textOf(kept()); }
  void writeFile(const std::string& text) const {
    fs::create_directories(file().parent_path());
    std::ofstream(file()) << text;
  }

  KeptLog log;

private:
  static std::string textOf(const fs::path& path) {
    std::stringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }

  QTemporaryDir home_;
  std::optional<qt::QtUserDefaults> defaults_;
};

std::unique_ptr<UserDefaultsWorld> makeWorld() { return std::make_unique<QtUserDefaultsWorld>(); }

/// The rights of an ordinary user for as long as it lives, as root may write everywhere.
class Ordinary {
public:
  Ordinary() {
    if (wasRoot_) {
      EXPECT_EQ(seteuid(nobody), 0);
    }
  }
  ~Ordinary() {
    if (wasRoot_) {
      EXPECT_EQ(seteuid(0), 0);
    }
  }
  Ordinary(const Ordinary&) = delete;
  Ordinary& operator=(const Ordinary&) = delete;

private:
  static constexpr uid_t nobody = 65534;
  bool wasRoot_ = geteuid() == 0;
};

struct QtUserDefaultsFile : testing::Test {
  std::optional<std::string> read() { return world.defaults().data(key); }
  void write(std::string_view blob) { world.defaults().setData(key, blob); }

  QtUserDefaultsWorld world;
};

TEST_F(QtUserDefaultsFile, IsNotMadeByReading) {
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_TRUE(fs::is_empty(world.config()));
}

TEST_F(QtUserDefaultsFile, HasTextAsAQuotedValue) {
  write(R"({"gap":8,"name":"ü"})");
  EXPECT_EQ(world.fileText(), "[General]\ntilwin.settings.v1=\"{\\\"gap\\\":8,\\\"name\\\":\\\"ü\\\"}\"\n");
}

TEST_F(QtUserDefaultsFile, MayBeWrittenByHand) {
  world.writeFile("; mine\n[General]\ntilwin.settings.v1 = \"{\\\"gap\\\": 8, \\\"outer\\\": 4}\"\n");
  EXPECT_EQ(read(), R"({"gap": 8, "outer": 4})");
}

TEST_F(QtUserDefaultsFile, AValueWithoutItsQuotesIsStillSeen) {
  world.writeFile("[General]\ntilwin.settings.v1={\"gap\":8,\"outer\":4}\n");
  EXPECT_EQ(read(), "{gap:8,outer:4}");
}

TEST_F(QtUserDefaultsFile, IsReadAfreshWhenSomebodyElseHasWrittenIt) {
  write("first");
  world.writeFile("[General]\ntilwin.settings.v1=by hand\n");
  EXPECT_EQ(read(), "by hand");
}

TEST_F(QtUserDefaultsFile, KeepsWhatElseStandsInIt) {
  world.writeFile("[General]\nother=3\n\n[Colours]\nedge=blue\n");
  write("{}");
  EXPECT_EQ(world.fileText(), "[General]\nother=3\ntilwin.settings.v1={}\n\n[Colours]\nedge=blue\n");
}

TEST_F(QtUserDefaultsFile, ABrokenLineHarmsNoOther) {
  world.writeFile("[General\nnonsense\n\xff\xfe\ntilwin.settings.v1=\"{}\"\n");
  EXPECT_EQ(read(), "{}");
}

TEST_F(QtUserDefaultsFile, IsKeptBesideBeforeItsBrokenLinesAreLost) {
  for (const std::string broken :
       {"[General]\ntilwin.settings.v1 \"{}\"\n", "[General]\n\n[Other]\nnonsense\n"}) {
    QtUserDefaultsWorld each;
    each.writeFile(broken);
    static_cast<void>(each.defaults().data(key));
    each.defaults().setData(key, "first");
    each.defaults().setData(key, "second");
    EXPECT_EQ(each.defaults().data(key), "second");
    EXPECT_EQ(each.keptText(), broken);
    ASSERT_EQ(each.log.lines.size(), 1U);
    EXPECT_NE(each.log.lines[0].find("not all of"), std::string::npos);
  }
}

TEST_F(QtUserDefaultsFile, IsKeptEvenWhenNobodyHasReadIt) {
  const std::string broken = "[General]\nnonsense\n";
  world.writeFile(broken);
  write("{}");
  EXPECT_EQ(world.keptText(), broken);
}

TEST_F(QtUserDefaultsFile, WithoutBrokenLinesNeedsNoCopy) {
  world.writeFile("[General]\nother=3\n\n[Colours]\nedge=blue\n");
  static_cast<void>(read());
  write("{}");
  EXPECT_EQ(world.keptText(), "");
}

TEST_F(QtUserDefaultsFile, FarTooLargeIsNotReadAndPutAside) {
  world.writeFile("[General]\ntilwin.settings.v1={}\n");
  fs::resize_file(world.file(), 100'000'000);
  EXPECT_EQ(read(), std::nullopt);
  write("new");
  EXPECT_EQ(read(), "new");
  EXPECT_EQ(fs::file_size(world.kept()), 100'000'000U);
  EXPECT_EQ(world.fileText(), "[General]\ntilwin.settings.v1=new\n");
}

TEST_F(QtUserDefaultsFile, MayBeALinkToAnother) {
  const fs::path real = world.config() / "dotfiles.conf";
  std::ofstream(real) << "[General]\n";
  fs::create_directories(world.file().parent_path());
  fs::create_symlink(real, world.file());
  write("{}");
  EXPECT_TRUE(fs::is_symlink(world.file()));
  world.restart();
  EXPECT_EQ(read(), "{}");
}

TEST_F(QtUserDefaultsFile, FailuresAreLoggedOnceUntilAWriteWorks) {
  world.setDiskFull(true);
  write("first");
  write("second");
  world.setDiskFull(false);
  ASSERT_EQ(world.log.lines.size(), 1);
  EXPECT_EQ(world.log.lines[0], "Tilwin: settings cannot be saved in " + world.file().string());
  write("third");
  EXPECT_EQ(world.log.lines.size(), 1);
  world.setDiskFull(true);
  write("fourth");
  EXPECT_EQ(world.log.lines.size(), 2);
}

TEST_F(QtUserDefaultsFile, WithoutAFolderForItNothingIsStored) {
  std::ofstream(world.config() / "Tilwin") << "a file where the folder should be";
  write("{}");
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_EQ(world.log.lines.size(), 1);
}

TEST_F(QtUserDefaultsFile, InAFolderThatMayNotBeWrittenStaysAsItIs) {
  write("old");
  const fs::path folder = world.file().parent_path();
  fs::permissions(world.config(), fs::perms(0755));
  fs::permissions(folder, fs::perms(0555));
  const Ordinary user;
  write("new");
  EXPECT_EQ(read(), "old");
  EXPECT_EQ(world.log.lines.size(), 1);
}

TEST_F(QtUserDefaultsFile, AFailureLeavesNoRubbishBehind) {
  write("old");
  world.setDiskFull(true);
  write("new");
  world.setDiskFull(false);
  const fs::directory_iterator entries(world.file().parent_path());
  EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(QtUserDefaultsFile, AFolderInItsPlaceIsSurvived) {
  fs::create_directories(world.file());
  EXPECT_EQ(read(), std::nullopt);
  write("{}");
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_EQ(world.log.lines.size(), 1);
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, UserDefaultsContract, testing::Values(&makeWorld));

}  // namespace tilwin::contract
