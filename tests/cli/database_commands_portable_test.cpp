// The driver's databases in the terminal.

#include "cli/command_line_run.h"
#include "cli/output.h"

namespace kestrune::cli {
namespace {

TEST_F(CommandLineTest, DatabasesAreTheDriversOwn) {
  const std::string system = Out({"database", "sys"});
  EXPECT_TRUE(system.starts_with("7184sys\nCoolBits\tShows the clock page")) << system;
  EXPECT_NE(system.find("older drivers.\t0 -1 3\n"), std::string::npos) << system;
  const std::string all = Run({"database"}, "win2000-geforce2").out;
  std::size_t last = 0;
  for (const char* file : {"3082d3d\n", "\n3082ogl\n", "\n3082sys\n"}) {
    const std::size_t at = all.find(file);
    ASSERT_NE(at, std::string::npos) << file;
    EXPECT_GE(at, last);
    last = at;
  }
  const Json document = Json::parse(Out({"--json", "database", "sys"}));
  EXPECT_EQ(document.at(0).at("file"), "7184sys");
  EXPECT_EQ(document.at(0).at("entries").at(0).at("values"), Json::array({0, -1, 3}));
}

TEST_F(CommandLineTest, ADatabaseThatIsNotThereHasItsNameAlone) {
  program_folder = folder / "data";
  folder.Write("data/DATA/Database/7000ogl.dat", "A,\"b\tc\",1,x\n");
  const auto run = [this](const std::string& tag) { return Run({"database", tag}); };
  EXPECT_EQ(run("ogl").out, "7000ogl\nA\tb\\tc\t1\n");
  EXPECT_EQ(run("d3d").out, "0000d3d\n");
  EXPECT_EQ(run("d3d").status, 1);
  ExpectRefused(2, "\"gl\" is none of d3d, ogl and sys.", {"database", "gl"});
}

}  // namespace
}  // namespace kestrune::cli
