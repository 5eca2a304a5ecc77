// The C++ library's file streams ask for a function that the run-time library of Windows 98 and of
// Windows NT 4 doesn't have; a program that imports it isn't loaded there. These definitions take
// the import's place. They have to be among the program's own objects: a library of its own is
// searched before the C++ library asks.
#ifdef __i386__

// The header declares the functions as this file's own, and the older of them by its name.
#define _CRTIMP
#define _USE_32BIT_TIME_T
#include <sys/stat.h>

extern "C" {

int _fstat64(int file, struct _stat64* status) {
  struct _stat32i64 found {};
  if (_fstat32i64(file, &found) != 0) return -1;
  *status = {found.st_dev,   found.st_ino,   found.st_mode, found.st_nlink,
             found.st_uid,   found.st_gid,   found.st_rdev, found.st_size,
             found.st_atime, found.st_mtime, found.st_ctime};
  return 0;
}

// What code calls it by that was compiled for a library's.
int (*_imp___fstat64)(int, struct _stat64*) = _fstat64;
}

#endif
