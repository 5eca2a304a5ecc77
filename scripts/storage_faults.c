/* Preloaded into a program, makes one of the calls by which it changes or reads files named like a store fail:
   STORAGE_FAULT=N:ERRNO fails the N-th such call; every later one too with STORAGE_FAULT=N:ERRNO:on. */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

static int Fails(int file) {
  static int at = -2, error, stays, calls;
  if (at == -2) {
    const char* rule = getenv("STORAGE_FAULT");
    at = -1;
    if (rule != NULL && sscanf(rule, "%d:%d", &at, &error) == 2) stays = strstr(rule, ":on") != NULL;
  }
  char link[64], name[4096];
  snprintf(link, sizeof link, "/proc/self/fd/%d", file);
  const ssize_t length = readlink(link, name, sizeof name - 1);
  if (at < 0 || length < 0) return 0;
  name[length] = '\0';
  if (strstr(name, ".store") == NULL) return 0;
  ++calls;
  if (calls != at && !(stays && calls > at)) return 0;
  errno = error;
  return 1;
}

#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

ssize_t pwrite64(int file, const void* data, size_t size, off64_t at) {
  return Fails(file) ? -1 : NEXT(pwrite64)(file, data, size, at);
}
ssize_t pread64(int file, void* data, size_t size, off64_t at) {
  return Fails(file) ? -1 : NEXT(pread64)(file, data, size, at);
}
ssize_t write(int file, const void* data, size_t size) {
  return Fails(file) ? -1 : NEXT(write)(file, data, size);
}
int fsync(int file) { return Fails(file) ? -1 : NEXT(fsync)(file); }
int fdatasync(int file) { return Fails(file) ? -1 : NEXT(fdatasync)(file); }
int ftruncate64(int file, off64_t size) { return Fails(file) ? -1 : NEXT(ftruncate64)(file, size); }
