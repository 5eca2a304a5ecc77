#pragma once

/// The numbers of the interface texts that code compares, joins or shows; the rows of the windows
/// give those that only stand on a control.
namespace kestrune::lang::texts {

inline constexpr int kDefault = 88;  ///< also behind the name of a value that the driver decides

// What the overclocking page says.
inline constexpr int kDefaultCore = 92;
inline constexpr int kCurrentCore = 93;
inline constexpr int kDefaultMemory = 94;
inline constexpr int kCurrentMemory = 95;
inline constexpr int kAppliedAtLogOn = 96;
inline constexpr int kImplausibleClocks = 97;  ///< the card's identifier follows
inline constexpr int kImplausibleClocksEnd = 98;
inline constexpr int kCoreClock = 226;
inline constexpr int kMemoryClock = 227;
inline constexpr int kRefusedClock = 269;

// What monitoring says.
inline constexpr int kSamplesLeftOut = 265;
inline constexpr int kRecordingStopped = 270;
inline constexpr int kRecordingNotStarted = 277;

// What the profile manager says.
inline constexpr int kSelectProfile = 232;
inline constexpr int kNoProfiles = 233;
inline constexpr int kSaved = 234;
inline constexpr int kNoProfile = 235;
inline constexpr int kRefusedName = 268;
inline constexpr int kBeyondList = 272;
inline constexpr int kRefusedApplication = 274;

// Reasons why something is disabled; the first is followed by the release.
inline constexpr int kFromDriver = 278;
inline constexpr int kNotOnThisCard = 279;
inline constexpr int kNotOnThisSystem = 280;

// The beginnings of the information lines.
inline constexpr int kVgaDevice = 101;
inline constexpr int kGpuId = 102;
inline constexpr int kGpuRevision = 103;
inline constexpr int kDriverVersion = 104;
inline constexpr int kProcessor = 105;
inline constexpr int kProcessorVendor = 106;
inline constexpr int kProcessorSpeed = 107;
inline constexpr int kMemory = 108;
inline constexpr int kOsVersion = 109;
inline constexpr int kDirectXVersion = 110;
inline constexpr int kFreeMemory = 111;  ///< behind the amount
inline constexpr int kPciExpress = 113;  ///< behind the identifier of a graphics processor
inline constexpr int kProgramVersion = 246;
inline constexpr int kLastUpdate = 247;

// The beginnings of what the page of processes says.
inline constexpr int kProcessName = 257;
inline constexpr int kProcessId = 258;
inline constexpr int kParentProcess = 259;
inline constexpr int kThreadCount = 260;
inline constexpr int kTotalProcesses = 262;

// What the page of the DirectX report says.
inline constexpr int kReportAwaited = 112;
inline constexpr int kNoReport = 271;

// What is said of changes of the display mode.
inline constexpr int kModeNeedsRestart = 241;
inline constexpr int kModeRefused = 242;
inline constexpr int kKeepMode = 273;

// What the registry editor says.
inline constexpr int kRegistryEditor = 196;  ///< the database's name follows
inline constexpr int kRegistryEditorEnd = 197;
inline constexpr int kNoDescription = 205;
inline constexpr int kNotSet = 206;

// Choices, and the beginnings of captions that a number or a choice follows.
inline constexpr int kLodBias = 118;
inline constexpr int kTrilinearQuality = 123;
inline constexpr int kQuality = 127;
inline constexpr int kPerformance = 128;
inline constexpr int kHighPerformance = 129;
inline constexpr int kHighQuality = 130;
inline constexpr int kFineTrilinear = 131;
inline constexpr int kMiddleTrilinear = 132;
inline constexpr int kCoarseTrilinear = 133;
inline constexpr int kNone = 134;
inline constexpr int kBilinear = 135;
inline constexpr int kTrilinear = 136;
inline constexpr int kAuto = 137;
inline constexpr int kDisabled = 145;
inline constexpr int kEnabled = 146;
inline constexpr int kOnByDefault = 159;
inline constexpr int kOffByDefault = 160;
inline constexpr int kDesktopColorDepth = 161;
inline constexpr int kMaxTextures = 165;
inline constexpr int kPixelShader = 168;
inline constexpr int kVertexShader = 169;
inline constexpr int kNoOverride = 180;
inline constexpr int kEmulationOff = 181;
inline constexpr int kEmulationReference = 182;
inline constexpr int kUnknown = 183;

/// Numbers from the first to the last.
struct Range {
  int first;
  int last;
};

/// The numbers that have a text in every language. The others are free.
inline constexpr Range kAssigned[] = {{0, 6},     {10, 14},   {18, 21},   {25, 27},   {31, 69},
                                      {85, 98},   {101, 185}, {187, 189}, {196, 214}, {219, 243},
                                      {245, 247}, {254, 275}, {277, 280}};

/// Texts that are told from one another, so that they differ in every language. -1 is none.
inline constexpr int kToldApart[][4] = {{kQuality, kPerformance, kHighPerformance, kHighQuality},
                                        {kNone, kBilinear, kTrilinear, kAuto},
                                        {kDisabled, kEnabled, kUnknown, -1},
                                        {kOnByDefault, kOffByDefault, kDesktopColorDepth, -1},
                                        {kNoOverride, kEmulationOff, kEmulationReference, -1}};

}  // namespace kestrune::lang::texts
