#pragma once

#include <string>
#include <vector>

namespace kestrune::cards {

struct CardFile {
  std::string path;  ///< below the project's folder: "data/DATA/mt.dat"
  std::string text;
};

/// The card tables that are installed, and docs/cards.md, from the table of cards.
std::vector<CardFile> MakeCardFiles();

}  // namespace kestrune::cards
