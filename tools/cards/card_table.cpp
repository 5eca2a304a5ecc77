#include "card_table.h"

namespace kestrune::cards {

namespace {

using enum Confidence;
using enum Memory;
using enum Source;

constexpr Features kTnt = {"Riva TNT and TNT2", 2, {"0.0", 0}, {"0.0", 0}, 0, "0"};
constexpr Features kGeForce2 = {"GeForce 256 and GeForce2", 2, {"0.0", 0}, {"0.0", 0}, 2, "4"};
constexpr Features kGeForce4Mx = {"GeForce4 MX", 2, {"0.0", 0}, {"0.0", 0}, 2, "q"};
constexpr Features kGeForce3 = {"GeForce3", 4, {"1.1", 1}, {"1.1", 1}, 8, "q"};
constexpr Features kGeForce4Ti = {"GeForce4 Ti", 4, {"1.3", 2}, {"1.1", 1}, 8, "q"};
constexpr Features kGeForceFx = {"GeForce FX", 8, {"2.0", 4}, {"2.0", 2}, 8, "8"};
constexpr Features kGeForce6 = {"GeForce 6, 7 and 8", 8, {"3.0", 5}, {"3.0", 3}, 16, "8"};
constexpr Features kAllFeatures[] = {kTnt,        kGeForce2,  kGeForce4Mx, kGeForce3,
                                     kGeForce4Ti, kGeForceFx, kGeForce6};

constexpr Card kRows[] = {
    {"02", kTnt, "NV4 NV5", "Riva TNT; TNT2, TNT2 Pro/Ultra, Vanta, TNT2 M64", "Riva TNT and TNT2",
     128, 150, kOwn, 2, 125, kPciIds, kMedium},
    {"04", kGeForce6, "NV40", "GeForce 6800 AGP family, Quadro FX 4000", "GeForce 6800", 256, 700,
     kOwn, 12, 325, kPciIds, kHigh},
    {"0040", kGeForce6, "NV40", "GeForce 6800 Ultra", "", 0, 1100, kOwn, 16, 400, kPciIds, kHigh},
    {"0041", kGeForce6, "NV40", "GeForce 6800", "", 0, 700, kOwn, 12, 325, kPciIds, kHigh},
    {"0042", kGeForce6, "NV40", "GeForce 6800 LE", "", 0, 700, kOwn, 8, 320, kPciIds, kMedium},
    {"0043", kGeForce6, "NV40", "GeForce 6800 XE", "", 0, 700, kOwn, 8, 300, kPciIds, kLow,
     "clocks and pipelines aren't confirmed; eight pipelines, the fewest of a 6800"},
    {"0044", kGeForce6, "NV40", "GeForce 6800 XT", "", 0, 700, kOwn, 8, 325, kPciIds, kLow,
     "clocks and pipelines aren't confirmed; eight pipelines, the fewest of a 6800"},
    {"0045", kGeForce6, "NV40", "GeForce 6800 GT", "", 0, 1000, kOwn, 16, 350, kPciIds, kHigh},
    {"0046", kGeForce6, "NV40", "GeForce 6800 GT", "", 0, 1000, kOwn, 16, 350, kNeighbours,
     kMedium},
    {"0047", kGeForce6, "NV40", "GeForce 6800 GS", "", 0, 1000, kOwn, 12, 350, kPciIds, kMedium},
    {"0048", kGeForce6, "NV40", "GeForce 6800 XT", "", 0, 700, kOwn, 8, 325, kPciIds, kLow,
     "clocks and pipelines aren't confirmed; eight pipelines, the fewest of a 6800"},
    {"004E", kGeForce6, "NV40", "Quadro FX 4000", "", 0, 1000, kOwn, 12, 375, kPciIds, kMedium},
    {"09", kGeForce6, "G70", "GeForce 7800 GTX/GT/GS, Go 7800, Quadro FX 4500", "GeForce 7800 GTX",
     256, 1200, kOwn, 24, 430, kPciIds, kHigh},
    {"0A", kTnt, "NV0A (NV5 IGP)", "Aladdin TNT2 chipset graphics", "built-in TNT2", 64, 100,
     kComputers, 2, 80, kPciIds, kLow,
     "nothing confirms the clocks; those of a slow one, where a TNT2 card has 125 and 150"},
    {"0C", kGeForce6, "NV41 NV42", "GeForce 6800/LE/XT/GS PCIe, Go 6800, Quadro FX 1400/3450",
     "GeForce 6800 on PCI Express", 256, 600, kOwn, 12, 325, kPciIds, kHigh},
    {"F0", kGeForce6, "NV40 or NV45", "probably a GeForce 6800 on the bridge", "some GeForce 6800",
     256, 700, kOwn, 12, 325, kNeighbours, kLow,
     "the features are those of any GeForce 6; clocks and pipelines of the plain 6800, not "
     "the Ultra"},
    {"F1", kGeForce6, "NV43", "GeForce 6600 GT AGP", "GeForce 6600 GT", 128, 900, kOwn, 8, 500,
     kPciIds, kHigh},
    {"F2", kGeForce6, "NV43", "GeForce 6600 AGP", "GeForce 6600", 128, 550, kOwn, 8, 300, kPciIds,
     kHigh},
    {"F3", kGeForce6, "NV43", "GeForce 6200 AGP (NV43)", "GeForce 6200", 128, 550, kOwn, 4, 300,
     kPciIds, kHigh},
    {"F4", kGeForce6, "NV43", "GeForce 6600 LE AGP", "GeForce 6600 LE", 128, 500, kOwn, 4, 300,
     kPciIds, kMedium},
    {"F5", kGeForce6, "G70 or G71", "GeForce 7800 GS AGP", "GeForce 7800 GS", 256, 1200, kOwn, 16,
     375, kPciIds, kHigh},
    {"F6", kGeForce6, "NV42 (lists say NV43)", "GeForce 6800 GS/XT AGP", "GeForce 6800 GS", 256,
     1000, kOwn, 12, 350, kPciIds, kMedium},
    {"F7", kGeForce6, "NV4x", "some card of the GeForce 6 family", "", 256, 700, kOwn, 8, 325,
     kNeighbours, kLow,
     "the features are those of any GeForce 6; clocks and pipelines of a 6800 XT, one of the "
     "slowest"},
    {"F8", kGeForce6, "NV45GL", "Quadro FX 3400/4400", "Quadro FX 3400", 256, 900, kOwn, 16, 350,
     kPciIds, kMedium},
    {"F9", kGeForce6, "NV45 (NV40 core)", "GeForce 6800 Ultra/GT/GTO PCIe", "GeForce 6800 Ultra",
     256, 1100, kOwn, 16, 400, kPciIds, kHigh},
    {"FA", kGeForceFx, "NV39 (NV36 core)", "GeForce PCX 5750", "", 128, 500, kOwn, 4, 425, kPciIds,
     kMedium},
    {"FB", kGeForceFx, "NV35", "GeForce PCX 5900", "", 256, 550, kOwn, 4, 350, kPciIds, kMedium},
    {"FC", kGeForceFx, "NV37 (NV34 core)", "GeForce PCX 5300, Quadro FX 330", "GeForce PCX 5300",
     128, 400, kOwn, 4, 250, kPciIds, kMedium},
    {"FD", kGeForceFx, "NV37GL (NV34 core)", "Quadro FX 330, Quadro NVS 280 PCIe", "Quadro NVS 280",
     64, 400, kOwn, 4, 250, kPciIds, kMedium},
    {"FE", kGeForceFx, "NV38GL (NV35 core)", "Quadro FX 1300", "", 256, 550, kOwn, 4, 350, kPciIds,
     kMedium},
    {"FF", kGeForce4Mx, "NV19 (NV18 core)", "GeForce PCX 4300", "", 128, 332, kOwn, 2, 250, kPciIds,
     kMedium},
    {"10", kGeForce2, "NV10", "GeForce 256 SDR/DDR, Quadro", "GeForce 256", 128, 300, kOwn, 4, 120,
     kPciIds, kHigh},
    {"11", kGeForce2, "NV11", "GeForce2 MX/MX 200/MX 400, Go, Quadro2 MXR", "GeForce2 MX", 128, 166,
     kOwn, 2, 175, kPciIds, kHigh},
    {"14", kGeForce6, "NV43", "GeForce 6600/GT/LE, 6200, 6700 XL, Go 6600, Quadro FX 540",
     "GeForce 6600 GT", 128, 1000, kOwn, 8, 500, kPciIds, kHigh},
    {"15", kGeForce2, "NV15", "GeForce2 GTS/Pro/Ti/Ultra, Quadro2 Pro", "GeForce2 GTS", 128, 333,
     kOwn, 4, 200, kPciIds, kHigh},
    {"16", kGeForce6, "NV44", "GeForce 6200 TurboCache, 6500, 7100 GS, Go 6200/6400",
     "GeForce 6200 TurboCache", 64, 700, kOwn, 4, 350, kPciIds, kHigh},
    {"17", kGeForce4Mx, "NV17", "GeForce4 MX 420/440/460, 4xx Go, Quadro4 550, Quadro NVS",
     "GeForce4 MX 440", 128, 400, kOwn, 2, 270, kPciIds, kHigh},
    {"18", kGeForce4Mx, "NV18", "GeForce4 MX 440 8x, MX 4000, 448/488 Go, Quadro4 380/580",
     "GeForce4 MX 440 8x", 128, 512, kOwn, 2, 275, kPciIds, kMedium},
    {"19", kGeForce6, "G80", "GeForce 8800 GTS/GTX/Ultra, Quadro FX 4600/5600", "GeForce 8800 GTX",
     384, 1800, kOwn, 32, 575, kPciIds, kHigh},
    {"1A", kGeForce2, "NV1A", "nForce 220/420 built-in GeForce2 MX", "built-in GeForce2 MX", 128,
     266, kComputers, 2, 175, kPciIds, kMedium},
    {"1D", kGeForce6, "G72", "GeForce 7200 GS, 7300 LE/SE/GS, 7500 LE, Go 7200-7400",
     "GeForce 7300 GS", 64, 810, kOwn, 4, 550, kPciIds, kMedium},
    {"1F", kGeForce4Mx, "NV1F", "nForce2 built-in GeForce4 MX", "built-in GeForce4 MX", 128, 333,
     kComputers, 2, 250, kPciIds, kMedium},
    {"20", kGeForce3, "NV20", "GeForce3, Ti 200, Ti 500, Quadro DCC", "GeForce3", 128, 460, kOwn, 4,
     200, kPciIds, kHigh},
    {"21", kGeForce6, "NV48 or NV40 respin", "GeForce 6800, LE, GT, XT (second id set)",
     "GeForce 6800", 256, 700, kOwn, 12, 325, kPciIds, kMedium},
    {"22", kGeForce6, "NV44A", "GeForce 6200 AGP, 6200 A-LE", "GeForce 6200", 64, 500, kOwn, 4, 350,
     kPciIds, kMedium},
    {"24", kGeForce6, "C51", "GeForce 6100/6150, Go 6100/6150, Quadro NVS 210S",
     "built-in GeForce 6150", 64, 400, kComputers, 2, 475, kPciIds, kMedium},
    {"25", kGeForce4Ti, "NV25", "GeForce4 Ti 4200/4400/4600, Quadro4 700/750/900",
     "GeForce4 Ti 4200", 128, 513, kOwn, 4, 250, kPciIds, kHigh},
    {"28", kGeForce4Ti, "NV28", "GeForce4 Ti 4200 8x, 4800, 4800 SE, Quadro4 780/980",
     "GeForce4 Ti 4800", 128, 650, kOwn, 4, 300, kPciIds, kHigh},
    {"29", kGeForce6, "G71", "GeForce 7900 GS/GT/GTX, 7950 GT/GX2, Quadro FX 1500-5500",
     "GeForce 7900 GT", 256, 1320, kOwn, 24, 450, kPciIds, kHigh},
    {"2A", kGeForce4Ti, "NV2A", "console graphics chip", "", 128, 400, kOwn, 4, 233, kPciIds, kLow,
     "there is no desktop driver, so no computer offers its features; the clocks are the "
     "console's, "
     "below those of any GeForce4 Ti"},
    {"2E", kGeForce6, "G73 G71 (bridge)",
     "GeForce 7600 GT/GS AGP, 7300 GT AGP, 7900 GS AGP, 7950 GT AGP", "GeForce 7600 GT", 128, 1400,
     kOwn, 12, 560, kPciIds, kMedium},
    {"30", kGeForceFx, "NV30", "GeForce FX 5800/Ultra, Quadro FX 1000/2000", "GeForce FX 5800", 128,
     800, kOwn, 4, 400, kPciIds, kHigh},
    {"31", kGeForceFx, "NV31", "GeForce FX 5600/Ultra/XT, Go5600, Quadro FX Go700",
     "GeForce FX 5600", 128, 550, kOwn, 4, 325, kPciIds, kHigh},
    {"32", kGeForceFx, "NV34", "GeForce FX 5100/5200/5500, Go5200, Quadro FX 500, NVS 280",
     "GeForce FX 5200", 128, 400, kOwn, 4, 250, kPciIds, kMedium},
    {"33", kGeForceFx, "NV35 NV38", "GeForce FX 5900/XT/Ultra, 5950 Ultra, Quadro FX 3000",
     "GeForce FX 5900", 256, 850, kOwn, 4, 400, kPciIds, kHigh},
    {"34", kGeForceFx, "NV36", "GeForce FX 5700/Ultra/LE, Go5700, Quadro FX 1100",
     "GeForce FX 5700", 128, 500, kOwn, 4, 425, kPciIds, kHigh},
    {"38", kGeForce6, "G73", "GeForce 7650 GS", "", 128, 800, kOwn, 8, 450, kPciIds, kLow,
     "clocks and pipelines aren't confirmed; eight pipelines, where other G73 have twelve"},
    {"39", kGeForce6, "G73", "GeForce 7300 GT, 7600 GS/GT, Go 7600/7700, Quadro FX 560",
     "GeForce 7600 GT", 128, 1400, kOwn, 12, 560, kPciIds, kHigh},
    {"3D", kGeForce6, "C61", "GeForce 6100/6150SE nForce 4xx, 7025", "built-in GeForce 6150 SE", 64,
     667, kComputers, 2, 425, kPciIds, kMedium},
    {"40", kGeForce6, "G84", "GeForce 8600 GS/GT/GTS, 8600M, Quadro FX 370-1700", "GeForce 8600 GT",
     128, 1400, kOwn, 16, 540, kPciIds, kHigh},
    {"42", kGeForce6, "G86", "GeForce 8300/8400 GS, 8500 GT, 8400M/8600M GS, Quadro NVS 290",
     "GeForce 8500 GT", 128, 800, kOwn, 8, 450, kPciIds, kHigh},
    {"53", kGeForce6, "C67 C68", "GeForce 7000M/7150M, 7025/7050 PV built in",
     "built-in GeForce 7050 PV", 64, 667, kComputers, 2, 425, kPciIds, kMedium},
    {"60", kGeForce6, "G92", "GeForce 8800 GT/GTS 512 (most ids 2008+)", "GeForce 8800 GTS 512",
     256, 1940, kOwn, 64, 650, kPciIds, kMedium},
    {"61", kGeForce6, "G92", "GeForce 8800 GT (most ids 2008+)", "GeForce 8800 GT", 256, 1800, kOwn,
     56, 600, kPciIds, kMedium},
    {"7E", kGeForce6, "C73", "GeForce 7050/7100/7150 built in (Intel boards)",
     "built-in GeForce 7150", 64, 800, kComputers, 2, 600, kPciIds, kMedium},
};

}  // namespace

const std::span<const Features> kFeatures = kAllFeatures;
const std::span<const Card> kCards = kRows;

std::string Card::Identifier() const {
  const bool is_bridge = key.front() == 'F';
  return std::string(HasWholeId() ? "" : is_bridge ? "00" : "0").append(key);
}

}  // namespace kestrune::cards
