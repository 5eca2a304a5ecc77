#include "value_descriptions.h"

#include <algorithm>
#include <iterator>

#include "platform/case_fold.h"

namespace kestrune::databases {

namespace {

constexpr ValueDescription kDescriptions[] = {
    // ---- Direct3D, and what it shares with OpenGL.
    {"D3DOGL_12677978",
     "Renders edges smoother by splitting antialiasing between two linked cards (SLI), for "
     "Direct3D "
     "and OpenGL alike. Does nothing with one card."},
    {"D3DOGL_70835937",
     "Antialiasing for Direct3D and OpenGL: smooths jagged edges; more samples look better and "
     "cost "
     "speed. Add 1048576 for gamma correction, and 65536 (multisampling) or 1073741824 "
     "(supersampling) to smooth transparent textures, on GeForce 7 cards.",
     {{0, "left to the game"}, {0x10000000, "never"}}},
    {"D3d_70835937",
     "Antialiasing mode for Direct3D: smooths jagged edges; more samples look better and cost "
     "speed. Works together with the switch D3D_08285629. Drivers from 50.00 on take the mode from "
     "D3DOGL_70835937 instead.",
     {{0, "left to the game"}}},
    {"D3D_08285629",
     "Switch that goes with the Direct3D antialiasing mode of D3d_70835937, before release 50.00.",
     {{0x57015990, "the mode is forced"}, {0x06326293, "antialiasing is off"}}},
    {"D3DOGL_74095213",
     "Anisotropic filtering for Direct3D and OpenGL: keeps textures sharp that are seen at an "
     "angle. Higher levels cost speed. Delete the value to let games decide.",
     {{0, "left to the game"},
      {1, "left to the game, as chosen for point sampling"},
      {0x10000001, "bilinear, without anisotropy"}}},
    {"D3d_74095213",
     "Anisotropic filtering for Direct3D: keeps textures sharp that are seen at an angle. Higher "
     "levels cost speed; point sampling (Point s.), of drivers below 41.03 alone, is the coarsest "
     "filter. Auto, as without the value, leaves it to the game. Drivers from 50.00 on take the "
     "level from D3DOGL_74095213 instead."},
    {"D3d_59954021",
     "Highest pixel shader version that games are told of. A lower one can make a game choose a "
     "simpler, faster path; higher than the card's own makes games fail. Delete the value for the "
     "card's own.",
     {{0, "the card's own"}, {static_cast<std::int32_t>(0xFFFF0000), "no pixel shaders"}}},
    {"D3D_59954023",
     "Highest vertex shader version that games are told of. A lower one can make a game choose a "
     "simpler, faster path. Delete the value for the card's own.",
     {{0, "the card's own"}, {static_cast<std::int32_t>(0xFFFE0000), "no vertex shaders"}}},
    {"D3D_59954022",
     "How many textures games are told that one pass can combine. Fewer can cure a game that "
     "stumbles over many; more than the card has makes games fail. Delete the value for the card's "
     "own number.",
     {{1, "one texture"},
      {2, "two, as a Riva TNT or GeForce 2 has"},
      {4, "four, as a GeForce 3 or 4 Ti has"},
      {8, "eight, as a GeForce FX and those after it have"},
      {16, "sixteen"}}},
    {"D3d_46205529",
     "Compresses depth data in the card's memory, without any loss. Faster where the card can do "
     "it."},
    {"D3D_36759435",
     "Takes the filtering between mipmaps away: textures look sharper but shimmer in motion."},
    {"D3D_69109016",
     "Forces the smallest, coarsest size of every texture. Everything looks washed out; of use on "
     "cards with very little memory, or to find out what limits the speed."},
    {"D3D_16579523",
     "Whether games may sharpen textures by a negative level-of-detail bias. Without it textures "
     "shimmer less under anisotropic filtering."},
    {"D3D_94118636",
     "Trilinear filtering in a shortened form: a little faster, with slightly visible steps "
     "between "
     "mipmaps."},
    {"D3D_40792312",
     "Anisotropic filtering uses simpler mipmap filtering on all textures but the first: faster, "
     "with slight shimmer."},
    {"D3D_30913648",
     "Anisotropic filtering takes fewer samples where the driver thinks it hardly shows: faster, "
     "with slight shimmer."},
    {"D3d_20466189",
     "Offers fog by table to games that ask for it, on cards that only have fog by vertex. Some "
     "old "
     "games show no fog without it."},
    {"D3D_QualityEnhancements",
     "Trades picture quality against speed in texture filtering for Direct3D."},
    {"D3DOGL_03385531",
     "Makes mipmaps for games that bring none, for Direct3D and OpenGL: distant textures stop "
     "flickering, at some cost in speed."},
    {"D3D_60461791",
     "Whether Direct3D pictures wait for the screen's refresh (vertical synchronisation). Waiting "
     "prevents torn pictures; not waiting shows the highest frame rate.",
     {{0x60925292, "left to the game"}, {0x47814940, "wait"}, {0x08416747, "never wait"}}},
    {"D3D_98764205",
     "How many frames Direct3D may prepare ahead of the card. More smooths the frame rate, fewer "
     "makes mouse and keys feel more direct.",
     {{0, "none ahead"},
      {1, "one frame"},
      {2, "two frames"},
      {3, "three frames, the driver's usual"},
      {5, "five frames"},
      {7, "seven frames"}}},
    {"D3D_88481200",
     "Level-of-detail bias for Direct3D textures, -24 to 24: below 0 they look sharper and "
     "shimmer, "
     "above 0 softer.",
     {{0, "as the game asks"},
      {-16, "much sharper"},
      {-8, "sharper"},
      {8, "softer"},
      {16, "much softer"}}},

    // ---- Direct3D of the oldest drivers, on Windows 9x.
    {"ANTIALIASENABLE",
     "Whether Direct3D smooths edges at all, on drivers of Windows 98 up to 22.80.",
     {{0, "off"}, {1, "on"}}},
    {"ANTIALIASQUALITY",
     "How smooth Direct3D edges become, on drivers of Windows 98 up to 22.80. Needs "
     "ANTIALIASENABLE.",
     {{0, "none"}, {1, "2x"}, {3, "4x"}}},
    {"ANTIALIASFORCEENABLE",
     "Whether edges are smoothed also in games that don't ask for it, on drivers of Windows 98 up "
     "to 22.80.",
     {{0, "only where games ask"}, {4, "always"}}},
    {"ANISOTROPICLEVEL",
     "Sharpness of textures that are seen at an angle, on drivers of Windows 98 up to 22.80.",
     {{0, "point sampling"}, {1, "bilinear"}, {2, "2x"}, {4, "4x"}, {8, "8x"}}},
    {"ZCOMPRESSENABLE",
     "Compression of depth data in the card's memory, on drivers of Windows 98 up to 22.80.",
     {{0, "off"}, {1, "on"}}},
    {"LODBIASADJUST",
     "Softness of Direct3D textures, on drivers of Windows 98 up to 22.80. Only one number is ever "
     "stored by this program.",
     {{10, "softer"}}},
    {"Z24ENABLE",
     "Whether games get 24 bits of depth, which shows distant surfaces without flicker, on drivers "
     "of Windows 98 up to 22.80.",
     {{1, "on"}}},
    {"USERMIPMAPENABLE",
     "Whether mipmaps are made as set by the user, on drivers of Windows 98 up to 22.80.",
     {{0, "off"}, {1, "on"}}},
    {"FOGTABLEENABLE",
     "Fog by table for games that ask for it, on drivers of Windows 98 up to 22.80.",
     {{0, "off"}, {1, "on"}}},

    // ---- OpenGL.
    {"FSAAMode",
     "Antialiasing for OpenGL: smooths jagged edges; more samples look better and cost speed. "
     "Drivers from 50.00 on take the mode from D3DOGL_70835937 instead.",
     {{0, "left to the game"}, {3, "a mode that the program never stores"}}},
    {"S3TCQuality",
     "Compression of textures by S3TC in games that don't ask for it, and dithering of the DXT1 "
     "kind. Compression saves memory and shows blocks in skies.",
     {{0, "neither"},
      {1, "compressed"},
      {2, "DXT1 without dithering"},
      {3, "compressed, DXT1 without dithering"}}},
    {"QualityEnhancements",
     "Trades picture quality against speed in texture filtering for OpenGL."},
    {"95282304",
     "Quality of trilinear filtering in OpenGL, 1 (finest) to 31 (fastest). Delete the value to "
     "let "
     "the image settings decide.",
     {{1, "finest"}, {10, "still fine"}, {20, "middle"}, {31, "fastest"}}},
    {"19723457",
     "Whether OpenGL textures are compressed by hand rather than by the image settings.",
     {{0, "left to the image settings"},
      {0x07368183, "where the game asks"},
      {static_cast<std::int32_t>(0x87508277), "always"}}},
    {"563A95F1",
     "Trilinear filtering of OpenGL in a shortened form: a little faster, with slightly visible "
     "steps between mipmaps."},
    {"01887890",
     "Anisotropic filtering of OpenGL uses simpler mipmap filtering on all textures but the first: "
     "faster, with slight shimmer."},
    {"1190801A",
     "Anisotropic filtering of OpenGL takes fewer samples where the driver thinks it hardly shows: "
     "faster, with slight shimmer."},
    {"TexLODBias",
     "Level-of-detail bias for OpenGL textures, -48 to 48: below 0 they look sharper and shimmer, "
     "above 0 softer.",
     {{0, "as the game asks"}, {-18, "much sharper"}, {-2, "slightly sharper"}, {10, "softer"}}},
    {"TexSharpen",
     "Sharpens textures in OpenGL while antialiasing is on, which otherwise makes them softer."},
    {"RenderQualityFlags",
     "Colour depth of textures in OpenGL. On Windows 98 a further 2 in the number is anisotropic "
     "filtering at 2x.",
     {{0, "that of the desktop"}, {2, "2x anisotropic filtering"}}},
    {"ForceGenericCPU",
     "Whether OpenGL leaves out the processor's extended instructions (MMX, SSE, 3DNow!). Leaving "
     "them out is slower and helps where they crash.",
     {{0, "they are used"}, {1, "they are left out"}}},
    {"TripleBuffer",
     "A third picture buffer in OpenGL: steadier frame rates while pictures wait for the screen, "
     "at "
     "the cost of memory. Drivers below 77.01 take it from EnableTripleBuffer."},
    {"EnableTripleBuffer",
     "A third picture buffer in OpenGL: steadier frame rates while pictures wait for the screen, "
     "at "
     "the cost of memory. Drivers from 77.01 on take it from TripleBuffer.",
     {{0, "off"}, {1, "on"}}},
    {"308826",
     "Version of OpenGL that games are told of, as the three characters of its text. For games "
     "that "
     "stumble over a newer one. Delete the value for the driver's own.",
     {{-1, "the driver's own"}}},
    {"DefaultSwapInterval",
     "Whether OpenGL pictures wait for the screen's refresh (vertical synchronisation). Waiting "
     "prevents torn pictures; not waiting shows the highest frame rate.",
     {{-1, "never"},
      {0, "where the game asks, off at first"},
      {1, "where the game asks, on at first"}}},
    {"MaxFramesAllowed",
     "How many frames OpenGL may prepare ahead of the card. More smooths the frame rate, fewer "
     "makes "
     "mouse and keys feel more direct.",
     {{0, "left to the driver"},
      {1, "one frame"},
      {2, "two frames"},
      {3, "three frames"},
      {5, "five frames"},
      {9, "nine frames, the most"}}},
    {"NVEmulate",
     "Chip family whose OpenGL abilities the driver pretends to have. Newer ones than the card's "
     "own are computed by the processor, extremely slowly. Drivers below 60.00 choose it by "
     "MaxNVACCEL, NV20Emulate, NV25Emulate and NV30Emulate.",
     {{0, "the card's own"}, {-1, "everything, computed by the processor", 6000}}},
    {"MaxNVACCEL",
     "Newest chip family, of the oldest ones, whose OpenGL abilities the driver shows, before "
     "release 60.00.",
     {{0, "the card's own"}, {1, "Riva TNT"}, {5, "Riva TNT as well"}, {10, "GeForce 2"}}},
    {"NV20Emulate",
     "Whether OpenGL pretends to run on a GeForce 3, before release 60.00.",
     {{0, "no"}, {1, "yes"}}},
    {"NV25Emulate",
     "Whether OpenGL pretends to run on a GeForce 4 Ti, before release 60.00.",
     {{0, "no"}, {1, "yes"}}},
    {"NV30Emulate",
     "Whether OpenGL pretends to run on a GeForce FX, before release 60.00. On older cards the "
     "processor computes what they lack, extremely slowly.",
     {{0, "no"}, {1, "yes"}}},
    {"Ogl_DefaultLogAniso",
     "Anisotropic filtering for OpenGL before release 50.00, on Windows NT, 2000 and XP: keeps "
     "textures sharp that are seen at an angle.",
     {{0, "off"}}},
    {"ForceMultiTexture",
     "Combining of several textures in one pass of OpenGL, which the name suggests is forced. No "
     "page of the program has it.",
     {{0, "off"}, {1, "on"}}},
    {"EnableForce16BitZ",
     "Depth of 16 bits in every OpenGL game: faster on old cards, distant surfaces flicker. No "
     "page "
     "of the program has it.",
     {{0, "off"}, {1, "on"}}},
    {"EnableSingleBackDepthBuffer",
     "One back and depth buffer for all OpenGL windows together, which saves memory with several "
     "of "
     "them. No page of the program has it.",
     {{0, "one for each window"}, {1, "one for all"}}},
    {"AnisoQuality",
     "Quality of anisotropic filtering in OpenGL, as its name says; what exactly changes isn't "
     "documented. No page of the program has it.",
     {{0, "lower"}, {1, "higher"}}},
    {"NV15Alines",
     "Smoothed lines in OpenGL, in a form made for the GeForce 2; of use in drawing programs. No "
     "page of the program has it.",
     {{0, "off"}, {1, "on"}}},

    // ---- The driver's control panel.
    {"CoolBits",
     "Shows the clock page in the driver's control panel and lets clocks be set. Newer drivers "
     "want "
     "-1, older ones and those of Windows 98 want 3.",
     {{0, "locked"}, {3, "unlocked, older drivers"}, {-1, "unlocked, newer drivers"}}},
    {"NvCplEnableAGPSettingsPage",
     "Page of the driver's control panel that sets the AGP transfer rate. Cards for PCI Express "
     "have "
     "no use for it.",
     {{0, "hidden"}, {1, "shown"}}},
    {"NvCplEnableAdditionalInfoPage",
     "Page of the driver's control panel with further facts about the card and its memory.",
     {{0, "hidden"}, {1, "shown"}}},
    {"NvCplEnableTroubleshootingPage",
     "Page of the driver's control panel with switches for hunting faults.",
     {{0, "hidden"}, {1, "shown"}}},
    {"NvCplEnableAppProfilePage",
     "Page of the driver's control panel with settings for single games.",
     {{0, "hidden"}, {1, "shown"}}},
    {"TwinViewCapsOverride",
     "Lets the driver offer two screens (nView) on a card that says it can't drive them.",
     {{0, "as the card says"}, {1, "offered"}}},
    {"NvCplEnableOverlaySpanControl",
     "Controls for video overlay while the desktop spans two screens, in the driver's control "
     "panel.",
     {{0, "hidden"}, {1, "shown"}}},
    {"NvCplDisableRefreshRatePage",
     "Page of the driver's control panel that sets refresh rates for Direct3D. Shown without the "
     "value up to 70.00, hidden without it since.",
     {{0, "shown"}, {1, "hidden"}}},
};

}  // namespace

const ValueDescription* FindDescription(std::string_view name) {
  const auto found = std::find_if(
      std::begin(kDescriptions), std::end(kDescriptions),
      [name](const ValueDescription& each) { return platform::SameWithoutCase(each.name, name); });
  return found == std::end(kDescriptions) ? nullptr : found;
}

}  // namespace kestrune::databases
