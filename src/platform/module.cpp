#include "platform/module.h"

#include <string>

#include "platform/files.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace tessara {

void* FindModuleRoutine(const char* module_name, const char* routine_name) {
#if defined(_WIN32)
  const Path path = ExecutableFolder() / (std::string(module_name) + ".dll");
  const HMODULE module = LoadLibraryW(path.c_str());
  return module ? reinterpret_cast<void*>(GetProcAddress(module, routine_name)) : nullptr;
#else
#if defined(__APPLE__)
  const char* ending = ".dylib";
#else
  const char* ending = ".so";
#endif
  const Path path = ExecutableFolder() / ("lib" + std::string(module_name) + ending);
  void* module = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  return module ? ::dlsym(module, routine_name) : nullptr;
#endif
}

}  // namespace tessara
