# What programs need that Windows 98 and Windows NT 4 load, made on Linux with mingw-w64.

# The oldest interfaces: newer headers make structures larger, which old systems refuse.
add_compile_definitions(_WIN32_WINNT=0x0400 WINVER=0x0400 _WIN32_IE=0x0400 NOMINMAX
                        WIN32_LEAN_AND_MEAN STRICT)
add_compile_options("$<$<COMPILE_LANGUAGE:CXX>:-Os;-ffunction-sections;-fdata-sections>")
enable_language(RC)
add_link_options(
  -static -s -Wl,--gc-sections
  # What the program asks of the system that loads it.
  -Wl,--major-subsystem-version=4,--minor-subsystem-version=0
  -Wl,--major-os-version=4,--minor-os-version=0)

# Libraries of headers alone are the same for every system. A folder of links keeps the other
# headers of this one away.
set(windows_headers ${CMAKE_BINARY_DIR}/headers)
file(MAKE_DIRECTORY ${windows_headers})
foreach(library CLI nlohmann)
  find_path(${library}_headers NAMES ${library} PATHS /usr/include NO_DEFAULT_PATH REQUIRED)
  file(CREATE_LINK ${${library}_headers}/${library} ${windows_headers}/${library} SYMBOLIC)
endforeach()
add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
# Its use of the file system's library would keep the program from loading on Windows 98.
target_compile_definitions(CLI11::CLI11 INTERFACE CLI11_HAS_FILESYSTEM=0)
target_include_directories(CLI11::CLI11 SYSTEM INTERFACE ${windows_headers})
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE ${windows_headers})
