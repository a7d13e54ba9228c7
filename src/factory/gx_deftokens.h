// gx_deftokens.h -- lines and tokens of definition files.
//
// The built-in definition data (data/definitions/) and the user definition files share one
// syntax: one entry per logical line, tokens separated by commas, names in double quotes (a
// quoted name may hold commas and blanks), a backslash at the end of a line joining it with
// the next, and lines that begin with '#' taken as comments.
//
// This code is pure text processing over the C library: the library uses it to read user
// definitions at run time, and the build compiles the same source into the host tool that
// turns the built-in data into constant tables.
#ifndef GX_DEFTOKENS_H
#define GX_DEFTOKENS_H

#include <stdio.h>

#define GX_DEFTOKENS_TEXT_LEN 1024 // a logical line, including the NUL
#define GX_DEFTOKENS_MAX 64        // tokens in one entry
#define GX_DEFTOKENS_MSG_LEN 128   // room for a tokenizer message

// Error numbers of the tokenizer.
#define GX_DEFTOKENS_ERR_TOO_MANY 105
#define GX_DEFTOKENS_ERR_UNBALANCED 106

// One tokenized entry: the line without the white space outside quotes, cut into tokens by
// NULs where they end; offsets[i] is where token i starts in text, -1 when absent.
typedef struct gx_deftokens {
    char text[GX_DEFTOKENS_TEXT_LEN];
    int offsets[GX_DEFTOKENS_MAX];
    int count;
} gx_deftokens;

// Reads one logical line into buf (size bytes): each physical line trimmed of white space at
// both ends, those ending in a backslash joined with the next by one blank.  The rest of a
// physical line too long for buf is dropped.  Returns the number of physical lines consumed,
// or -1 at end of file.
int gx_factory_readline(FILE *fp, char *buf, int size);

// Tokenizes a line into entry.  Returns the token count, 0 for a line with nothing in it, or
// -1 on error with *errnum and message (GX_DEFTOKENS_MSG_LEN bytes) describing it.
int gx_factory_tokenize(gx_deftokens *entry, const char *line, int *errnum, char *message);

// Token i of an entry, or null when the entry is null or has no token i.
const char *gx_factory_token(const gx_deftokens *entry, int i);

// A definition file read entry by entry.
typedef struct gx_deffile {
    FILE *fp;
    int next_line; // number of the next physical line to read
    int line;      // number of the first physical line of the entry last read
} gx_deffile;

// Starts reading fp from its first line.
void gx_deffile_init(gx_deffile *file, FILE *fp);

// Reads the next entry that is neither blank nor a comment into entry.  Returns its token
// count (at least 1), 0 at end of file, or -1 when the entry does not tokenize (*errnum and
// message tell why, file->line where); reading may go on after an error.
int gx_deffile_next(gx_deffile *file, gx_deftokens *entry, int *errnum, char *message);

#endif // GX_DEFTOKENS_H
