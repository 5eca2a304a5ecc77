#include "platform/win32/card_names.h"

#include <string>

namespace kestrune::platform::win32 {

namespace {

struct Card {
  unsigned device;
  std::string_view names;  ///< one after the other, with slashes between them
};

/// The cards that drivers for Windows NT 4 served, as the list of PCI identifiers names them.
constexpr Card kCards[] = {
    {0x0020, "Riva TNT"},
    {0x0028, "Riva TNT2 / TNT2 Pro"},
    {0x0029, "Riva TNT2 Ultra"},
    {0x002A, "Riva TNT2"},
    {0x002B, "Riva TNT2"},
    {0x002C, "Vanta / Vanta LT"},
    {0x002D, "Riva TNT2 Model 64 / Model 64 Pro"},
    {0x0040, "GeForce 6800 Ultra"},
    {0x0041, "GeForce 6800"},
    {0x0042, "GeForce 6800 LE"},
    {0x0043, "GeForce 6800 XE"},
    {0x0044, "GeForce 6800 XT"},
    {0x0045, "GeForce 6800 GT"},
    {0x0047, "GeForce 6800 GS"},
    {0x0048, "GeForce 6800 XT"},
    {0x004E, "Quadro FX 4000"},
    {0x00C0, "GeForce 6800 GS"},
    {0x00C1, "GeForce 6800"},
    {0x00C2, "GeForce 6800 LE"},
    {0x00C3, "GeForce 6800 XT"},
    {0x00C8, "GeForce Go 6800"},
    {0x00C9, "GeForce Go 6800 Ultra"},
    {0x00CC, "Quadro FX Go1400"},
    {0x00CE, "Quadro FX 1400"},
    {0x00F1, "GeForce 6600 GT"},
    {0x00F2, "GeForce 6600"},
    {0x00F3, "GeForce 6200"},
    {0x00F4, "GeForce 6600 LE"},
    {0x00F6, "GeForce 6800 GS/XT"},
    {0x00F9, "GeForce 6800 GT/GTO/Ultra"},
    {0x00FB, "GeForce PCX 5900"},
    {0x00FE, "Quadro FX 1300"},
    {0x0100, "GeForce 256 SDR"},
    {0x0101, "GeForce 256 DDR"},
    {0x0103, "Quadro"},
    {0x0110, "GeForce2 MX/MX 400"},
    {0x0111, "GeForce2 MX200"},
    {0x0112, "GeForce2 Go"},
    {0x0113, "Quadro2 MXR/EX/Go"},
    {0x0140, "GeForce 6600 GT"},
    {0x0141, "GeForce 6600"},
    {0x0142, "GeForce 6600 LE"},
    {0x0143, "GeForce 6600 VE"},
    {0x0144, "GeForce Go 6600"},
    {0x0145, "GeForce 6610 XL"},
    {0x0146, "GeForce Go6200 TE / 6600 TE"},
    {0x0147, "GeForce 6700 XL"},
    {0x0148, "GeForce Go 6600"},
    {0x0149, "GeForce Go 6600 GT"},
    {0x014A, "Quadro NVS 440"},
    {0x014D, "Quadro FX 550"},
    {0x014E, "Quadro FX 540"},
    {0x014F, "GeForce 6200"},
    {0x0150, "GeForce2 GTS/Pro"},
    {0x0151, "GeForce2 Ti"},
    {0x0152, "GeForce2 Ultra"},
    {0x0153, "Quadro2 Pro"},
    {0x0170, "GeForce4 MX 460"},
    {0x0171, "GeForce4 MX 440"},
    {0x0172, "GeForce4 MX 420"},
    {0x0173, "GeForce4 MX 440-SE"},
    {0x0174, "GeForce4 440 Go"},
    {0x0175, "GeForce4 420 Go"},
    {0x0176, "GeForce4 420 Go 32M"},
    {0x0177, "GeForce4 460 Go"},
    {0x0178, "Quadro4 550 XGL"},
    {0x0179, "GeForce4 440 Go 64M"},
    {0x017A, "Quadro NVS"},
    {0x017B, "Quadro4 550 XGL"},
    {0x017C, "Quadro4 500 GoGL"},
    {0x0181, "GeForce4 MX 440 AGP 8x"},
    {0x0182, "GeForce4 MX 440SE AGP 8x"},
    {0x0183, "GeForce4 MX 420 AGP 8x"},
    {0x0184, "GeForce4 MX"},
    {0x0185, "GeForce4 MX 4000"},
    {0x0186, "GeForce4 448 Go"},
    {0x0187, "GeForce4 488 Go"},
    {0x0188, "Quadro4 580 XGL"},
    {0x0189, "GeForce4 MX with AGP8X (Mac)"},
    {0x018A, "Quadro NVS 280 SD"},
    {0x018B, "Quadro4 380 XGL"},
    {0x018C, "Quadro NVS 50 PCI"},
    {0x018D, "GeForce4 448 Go"},
    {0x0200, "GeForce3"},
    {0x0201, "GeForce3 Ti 200"},
    {0x0202, "GeForce3 Ti 500"},
    {0x0203, "Quadro DCC"},
    {0x0250, "GeForce4 Ti 4600"},
    {0x0251, "GeForce4 Ti 4400"},
    {0x0252, "GeForce4 Ti"},
    {0x0253, "GeForce4 Ti 4200"},
    {0x0258, "Quadro4 900 XGL"},
    {0x0259, "Quadro4 750 XGL"},
    {0x025B, "Quadro4 700 XGL"},
    {0x0280, "GeForce4 Ti 4800"},
    {0x0281, "GeForce4 Ti 4200 AGP 8x"},
    {0x0282, "GeForce4 Ti 4800 SE"},
    {0x0286, "GeForce4 Ti 4200 Go AGP 8x"},
    {0x0288, "Quadro4 980 XGL"},
    {0x0289, "Quadro4 780 XGL"},
    {0x028C, "Quadro4 Go700"},
    {0x0300, "GeForce FX"},
    {0x0301, "GeForce FX 5800 Ultra"},
    {0x0302, "GeForce FX 5800"},
    {0x0308, "Quadro FX 2000"},
    {0x0309, "Quadro FX 1000"},
    {0x0311, "GeForce FX 5600 Ultra"},
    {0x0312, "GeForce FX 5600"},
    {0x0314, "GeForce FX 5600XT"},
    {0x031A, "GeForce FX Go5600"},
    {0x031B, "GeForce FX Go5650"},
    {0x031C, "Quadro FX Go700"},
    {0x0320, "GeForce FX 5200"},
    {0x0321, "GeForce FX 5200 Ultra"},
    {0x0322, "GeForce FX 5200"},
    {0x0323, "GeForce FX 5200LE"},
    {0x0324, "GeForce FX Go5200 64M"},
    {0x0325, "GeForce FX Go5250"},
    {0x0326, "GeForce FX 5500"},
    {0x0327, "GeForce FX 5100"},
    {0x0328, "GeForce FX Go5200 32M/64M"},
    {0x0329, "GeForce FX Go5200"},
    {0x032A, "Quadro NVS 280 PCI"},
    {0x032B, "Quadro FX 500/600 PCI"},
    {0x032C, "GeForce FX Go5300 / Go5350"},
    {0x032D, "GeForce FX Go5100"},
    {0x032F, "GeForce FX 5200"},
    {0x0330, "GeForce FX 5900 Ultra"},
    {0x0331, "GeForce FX 5900"},
    {0x0332, "GeForce FX 5900XT"},
    {0x0333, "GeForce FX 5950 Ultra"},
    {0x0334, "GeForce FX 5900ZT"},
    {0x0338, "Quadro FX 3000"},
    {0x033F, "Quadro FX 700"},
    {0x0341, "GeForce FX 5700 Ultra"},
    {0x0342, "GeForce FX 5700"},
    {0x0343, "GeForce FX 5700LE"},
    {0x0344, "GeForce FX 5700VE"},
    {0x0347, "GeForce FX Go5700"},
    {0x0348, "GeForce FX Go5700"},
    {0x034C, "Quadro FX Go1000"},
    {0x034E, "Quadro FX 1100"},
};

constexpr std::string_view kMaker = "NVIDIA";

/// Letters and digits alone, in capitals, without the maker's name.
std::string Plain(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (c >= 'a' && c <= 'z') plain += static_cast<char>(c - 'a' + 'A');
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) plain += c;
  }
  if (plain.starts_with(kMaker)) plain.erase(0, kMaker.size());
  return plain;
}

std::string_view First(std::string_view names) { return names.substr(0, names.find('/')); }

}  // namespace

std::optional<unsigned> DeviceNamed(std::string_view name) {
  if (Plain(First(name)).empty()) return std::nullopt;
  for (const Card& card : kCards) {
    if (Plain(card.names) == Plain(name)) return card.device;
  }
  for (const Card& card : kCards) {
    if (Plain(First(card.names)) == Plain(First(name))) return card.device;
  }
  return std::nullopt;
}

}  // namespace kestrune::platform::win32
