// What the program does for each page, setting and code, written out and compared with a listing
// that was read against the rules. With KESTRUNE_WRITE_CONTRACT set the listing is made anew, to be
// read again before it is kept.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "catalogue/catalogue.h"
#include "catalogue/listing.h"

namespace kestrune::catalogue {
namespace {

constexpr const char* kFile = KESTRUNE_TEST_FOLDER "/catalogue/contract.txt";

TEST(ContractTest, TheListingIsWhatTheProgramDoes) {
  Listing listing;
  listing.Comment(
      "Results are told by system and driver release, from each machine on to the next");
  listing.Comment("one named: " + test::Joined(Machines::Names(), " "));
  listing.Comment(
      "K is the driver's key. D3D and GL values stand in it as four bytes of REG_BINARY, on");
  listing.Comment(
      "Windows 9x (98) in its subkeys NVidia\\Direct3D and NVidia\\OpenGL as REG_DWORD. GL");
  listing.Comment(
      "names begin with OGL_ except on Windows 9x. Tweak, Debug and Options are the keys of");
  listing.Comment("the driver's switches, OpenGL's and the program's, always REG_DWORD.");
  listing.Comment("P is the program folder.");
  ListPages(listing);
  ListKeys(listing);
  ListHelp(listing);
  ListLists(listing);
  ListEnabled(listing);
  ListCardTables(listing);
  const std::set<std::string_view> read = ListReads(listing);
  ListFlags(listing);
  ListOldEmulation(listing);
  const std::set<std::string_view> written = ListUses(listing);
  ListTyped(listing);
  ListCodes(listing);
  ListQualityFlags(listing);
  for (const settings::Setting* row : AllSettings()) {
    EXPECT_TRUE(read.contains(row->id)) << row->id << " is read nowhere";
    EXPECT_TRUE(written.contains(row->id)) << row->id << " is written nowhere";
    EXPECT_TRUE(row->twin.empty() || written.contains(row->twin)) << row->twin;
  }

  const std::string made = listing.Text();
  if (std::getenv("KESTRUNE_WRITE_CONTRACT") != nullptr) {
    std::ofstream(kFile, std::ios::binary) << made;
  }
  std::ifstream file(kFile, std::ios::binary);
  std::istringstream now(made);
  std::string line;
  std::string expected;
  int number = 0;
  for (; std::getline(now, line); ++number) {
    ASSERT_TRUE(std::getline(file, expected)) << "new: " << line;
    ASSERT_EQ(line, expected) << "contract.txt:" << number + 1;
  }
  EXPECT_FALSE(std::getline(file, expected)) << "gone: " << expected;
}

}  // namespace
}  // namespace kestrune::catalogue
