/* formatHeader.h - what firmware in C, and such firmware in C++, makes of docs/ktl_format.h. */
#pragma once

#include <stddef.h>
#include <stdint.h>

/* A record, a field of one, the place of what follows a head, or a code. */
struct FormatRow
{
    const char* record; /* empty for a code */
    const char* name; /* empty for a record */
    int64_t place; /* offset; for a record its size, for a code its value */
    size_t width; /* bytes of one value, 0 where there is none */
    size_t count; /* values, 0 where there are none */
    int isSigned;
};

enum
{
    MaxFormatRows = 400
};

/* What is in a file, counted by the header alone: records that are there whole. */
struct FormatCounts
{
    size_t items;
    size_t runs; /* End items */
    size_t devices;
    size_t fmmus;
    size_t syncManagers;
    size_t modes;
    size_t pdos;
    size_t entries;
    size_t commands;
    size_t slotRecords;
    size_t presets;
    size_t modules;
    size_t moduleEntries;
    size_t moduleCommands;
    int isWhole; /* each item is there whole, up to the end of the file */
};

#ifdef __cplusplus
extern "C" {
#endif

/* Fill `rows`, and return how many there are. */
size_t formatRowsInC(struct FormatRow rows[MaxFormatRows]);
size_t formatRowsInCpp(struct FormatRow rows[MaxFormatRows]);

/* Count what is in a file. Nothing that the file says of itself is believed. */
struct FormatCounts formatCountsInC(const unsigned char* file, size_t size);
struct FormatCounts formatCountsInCpp(const unsigned char* file, size_t size);

#ifdef __cplusplus
}
#endif
