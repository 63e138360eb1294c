// Put before every source of a library that takes names of files for bytes of the system's old code page:
// names are UTF-8 here, as the program gives them, so that folders may have accents.
#pragma once

#ifndef __cplusplus

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <sys/stat.h>
#include <wchar.h>

__declspec(dllimport) int __stdcall MultiByteToWideChar(unsigned codePage, unsigned long flags,
                                                        const char* text, int length, wchar_t* wide,
                                                        int room);

enum { utf8CodePage = 65001, longestFileName = 1024 };

// A name that is too long or not UTF-8 becomes the empty one, which no system call accepts.
static inline const wchar_t* wideFileName(const char* name, wchar_t* wide) {
    if (MultiByteToWideChar(utf8CodePage, 0, name, -1, wide, longestFileName) == 0)
        wide[0] = 0;
    return wide;
}

static inline FILE* openUtf8Stream(const char* name, const char* mode) {
    wchar_t wide[longestFileName];
    wchar_t wideMode[longestFileName];
    return _wfopen(wideFileName(name, wide), wideFileName(mode, wideMode));
}

static inline int openUtf8File(const char* name, int flags, int rights) {
    wchar_t wide[longestFileName];
    return _wopen(wideFileName(name, wide), flags, rights);
}

static inline int statUtf8File(const char* name, struct stat* result) {
    wchar_t wide[longestFileName];
    return wstat(wideFileName(name, wide), result);
}

#define fopen(name, mode) openUtf8Stream(name, mode)
#define _open(name, flags, rights) openUtf8File(name, flags, rights)
#undef stat
#define stat(name, result) statUtf8File(name, result)

#endif
