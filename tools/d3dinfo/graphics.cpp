#include "graphics.h"

#define EGL_EGLEXT_PROTOTYPES 0
#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <GL/glext.h>
#include <dlfcn.h>

namespace kestrune::d3dinfo {

namespace {

struct TextRow {
  const char* name;
  GLenum text;
};

constexpr TextRow kTexts[] = {
    {"Vendor", GL_VENDOR},
    {"Renderer", GL_RENDERER},
    {"Version", GL_VERSION},
    {"Shader language", GL_SHADING_LANGUAGE_VERSION},
};

struct NumberRow {
  const char* name;
  GLenum number;
};

constexpr NumberRow kNumbers[] = {
    {"Texture units of the fixed pipeline", GL_MAX_TEXTURE_UNITS},
    {"Texture units of a pixel shader", GL_MAX_TEXTURE_IMAGE_UNITS},
    {"Texture units of a vertex shader", GL_MAX_VERTEX_TEXTURE_IMAGE_UNITS},
    {"Texture units of all shaders together", GL_MAX_COMBINED_TEXTURE_IMAGE_UNITS},
    {"Largest texture", GL_MAX_TEXTURE_SIZE},
    {"Highest anisotropy", GL_MAX_TEXTURE_MAX_ANISOTROPY_EXT},
    {"Most samples a pixel", GL_MAX_SAMPLES},
};

using Lines = std::vector<std::string>;

/// The calls of EGL that are needed to get at a context without a window.
struct Egl {
  Egl() {
    void* library = dlopen("libEGL.so.1", RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return;
    find = reinterpret_cast<decltype(find)>(dlsym(library, "eglGetProcAddress"));
    Get(library, "eglGetDisplay", get_display);
    Get(library, "eglInitialize", initialize);
    Get(library, "eglTerminate", terminate);
    Get(library, "eglBindAPI", bind_api);
    Get(library, "eglChooseConfig", choose_config);
    Get(library, "eglCreateContext", create_context);
    Get(library, "eglMakeCurrent", make_current);
    is_whole = find != nullptr && get_display != nullptr && initialize != nullptr &&
               terminate != nullptr && bind_api != nullptr && choose_config != nullptr &&
               create_context != nullptr && make_current != nullptr;
  }

  template <typename Function>
  static void Get(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
  }

  bool is_whole = false;
  decltype(&eglGetProcAddress) find = nullptr;
  decltype(&eglGetDisplay) get_display = nullptr;
  decltype(&eglInitialize) initialize = nullptr;
  decltype(&eglTerminate) terminate = nullptr;
  decltype(&eglBindAPI) bind_api = nullptr;
  decltype(&eglChooseConfig) choose_config = nullptr;
  decltype(&eglCreateContext) create_context = nullptr;
  decltype(&eglMakeCurrent) make_current = nullptr;
};

/// The display that is there, else graphics without one; EGL_NO_DISPLAY where there is neither.
EGLDisplay OpenDisplay(const Egl& egl) {
  const EGLDisplay usual = egl.get_display(EGL_DEFAULT_DISPLAY);
  if (usual != EGL_NO_DISPLAY && egl.initialize(usual, nullptr, nullptr) == EGL_TRUE) return usual;
  const auto get_platform =
      reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(egl.find("eglGetPlatformDisplayEXT"));
  if (get_platform == nullptr) return EGL_NO_DISPLAY;
  const EGLDisplay bare = get_platform(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  const bool opened = bare != EGL_NO_DISPLAY && egl.initialize(bare, nullptr, nullptr) == EGL_TRUE;
  return opened ? bare : EGL_NO_DISPLAY;
}

/// An interface that a context is made for, the one with most to say first.
struct ApiRow {
  EGLenum api;
  EGLint renderable;
  EGLint version;
};

constexpr ApiRow kApis[] = {{EGL_OPENGL_API, EGL_OPENGL_BIT, 1},
                            {EGL_OPENGL_ES_API, EGL_OPENGL_ES2_BIT, 2}};

/// Makes a context without a surface the current one.
bool MakeContext(const Egl& egl, EGLDisplay display, const ApiRow& row) {
  const EGLint wanted[] = {EGL_RENDERABLE_TYPE, row.renderable, EGL_SURFACE_TYPE, 0, EGL_NONE};
  const EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION, row.version, EGL_NONE};
  EGLConfig config = nullptr;
  EGLint count = 0;
  if (egl.bind_api(row.api) != EGL_TRUE ||
      egl.choose_config(display, wanted, &config, 1, &count) != EGL_TRUE || count == 0) {
    return false;
  }
  const EGLContext context = egl.create_context(display, config, EGL_NO_CONTEXT, attributes);
  return context != EGL_NO_CONTEXT &&
         egl.make_current(display, EGL_NO_SURFACE, EGL_NO_SURFACE, context) == EGL_TRUE;
}

/// What the current context says; a question that it doesn't know has no line.
Lines ReadContext(const Egl& egl) {
  const auto get_string = reinterpret_cast<decltype(&glGetString)>(egl.find("glGetString"));
  const auto get_integer = reinterpret_cast<decltype(&glGetIntegerv)>(egl.find("glGetIntegerv"));
  const auto get_error = reinterpret_cast<decltype(&glGetError)>(egl.find("glGetError"));
  if (get_string == nullptr || get_integer == nullptr || get_error == nullptr) return {};
  Lines lines;
  for (const TextRow& row : kTexts) {
    const auto* text = reinterpret_cast<const char*>(get_string(row.text));
    if (text != nullptr) lines.push_back(std::string(row.name) + ": " + text);
  }
  while (get_error() != GL_NO_ERROR) {
  }
  for (const NumberRow& row : kNumbers) {
    GLint number = 0;
    get_integer(row.number, &number);
    if (get_error() == GL_NO_ERROR) {
      lines.push_back(std::string(row.name) + ": " + std::to_string(number));
    }
  }
  return lines;
}

}  // namespace

std::vector<std::string> DescribeGraphics() {
  const Egl egl;
  if (!egl.is_whole) return {"There is no library EGL that could say anything."};
  const EGLDisplay display = OpenDisplay(egl);
  if (display == EGL_NO_DISPLAY) return {"The library EGL knows no graphics."};
  Lines lines;
  for (const ApiRow& row : kApis) {
    if (MakeContext(egl, display, row)) lines = ReadContext(egl);
    if (!lines.empty()) break;
  }
  egl.terminate(display);
  if (lines.empty()) return {"The graphics offer no OpenGL."};
  return lines;
}

}  // namespace kestrune::d3dinfo
