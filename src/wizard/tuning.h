#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files_api.h"
#include "wizard/optimize.h"

/// The files below DATA\PW: an index of entries, each a folder with a tuning file for each card.
/// They are read in the machine's code page and never written.
namespace kestrune::wizard {

inline constexpr std::string_view kFolder = "\\DATA\\PW\\";
inline constexpr std::string_view kIndex = "\\DATA\\PW\\index.dat";
inline constexpr std::string_view kEnding = ".dat";
inline constexpr std::string_view kDefaultEntry = "Default";

/// Whether an entry names no folder below that of the index.
bool LeadsOut(std::string_view entry);
/// The entries in the index's order, without those that lead out of the folder; nothing where
/// there is no index.
std::optional<std::vector<std::string>> ReadIndex(platform::FilesApi& files);
/// The two characters of a card's identifier that name its files; empty where it has no four.
std::string CardCode(std::string_view device_id);
/// Takes a text's numbers. One that isn't there, or is no whole number, leaves its factor.
void TakeFactors(std::string_view text, Factors& factors);
/// The same of an entry's file for a card. Without one all factors stay.
void ReadFactors(platform::FilesApi& files, std::string_view entry, std::string_view device_id,
                 Factors& factors);

}  // namespace kestrune::wizard
