// gx_deftokens.cpp -- reading definition files: logical lines and their tokens.
//
// Kept free of the object model and of the rest of the library (C library only) so that the
// host tool that generates the built-in tables compiles this very file.
#include "factory/gx_deftokens.h"

#include <ctype.h>
#include <string.h>

namespace {

bool is_space(char c) { return isspace(static_cast<unsigned char>(c)) != 0; }

// Strips white space from both ends of s, in place.
void trim(char *s)
{
    size_t start = 0;
    while (is_space(s[start]))
        start++;
    size_t len = strlen(s + start);
    if (start > 0)
        memmove(s, s + start, len + 1);
    while (len > 0 && is_space(s[len - 1]))
        s[--len] = '\0';
}

// After fgets stopped short of the end of a long line, drops the rest of that line, so that
// the next read starts on the next physical line and line numbers stay right.
void skip_rest_of_line(FILE *fp, const char *segment)
{
    if (strchr(segment, '\n') != nullptr)
        return;
    int c;
    do {
        c = getc(fp);
    } while (c != EOF && c != '\n');
}

// Copies line into text (GX_DEFTOKENS_TEXT_LEN bytes) without the white space outside
// double quotes; inside quotes every white-space character becomes a blank.  Returns the
// number of double quotes copied.
int squeeze_line(char *text, const char *line)
{
    int len = 0;
    int quotes = 0;
    bool quoted = false;
    for (const char *p = line; *p != '\0' && len < GX_DEFTOKENS_TEXT_LEN - 1; p++) {
        if (*p == '"') {
            quoted = !quoted;
            quotes++;
            text[len++] = *p;
        } else if (is_space(*p)) {
            if (quoted)
                text[len++] = ' ';
        } else {
            text[len++] = *p;
        }
    }
    text[len] = '\0';
    return quotes;
}

// Strips blanks from both ends of a NUL-terminated token; returns its new start.
char *trim_blanks(char *token)
{
    while (*token == ' ')
        token++;
    size_t len = strlen(token);
    while (len > 0 && token[len - 1] == ' ')
        token[--len] = '\0';
    return token;
}

// Cuts entry->text into tokens and records their offsets.  A token that begins with a double
// quote is the text up to the closing quote (trimmed); whatever follows it up to the next
// comma is ignored.  Any other token runs to the next comma.  Returns the token count, or -1
// when there are more than GX_DEFTOKENS_MAX tokens.
int split_tokens(gx_deftokens *entry)
{
    char *p = entry->text;
    int count = 0;
    for (;;) {
        if (count == GX_DEFTOKENS_MAX)
            return -1;
        char *start;
        char *comma;
        if (*p == '"') {
            char *close = strchr(p + 1, '"');
            comma = nullptr;
            if (close != nullptr) {
                *close = '\0';
                comma = strchr(close + 1, ',');
            }
            start = trim_blanks(p + 1);
        } else {
            start = p;
            comma = strchr(p, ',');
            if (comma != nullptr)
                *comma = '\0';
        }
        entry->offsets[count++] = static_cast<int>(start - entry->text);
        if (comma == nullptr)
            return count;
        p = comma + 1;
    }
}

int tokenize_error(int *errnum, char *message, int number, const char *text)
{
    if (errnum != nullptr)
        *errnum = number;
    if (message != nullptr)
        snprintf(message, GX_DEFTOKENS_MSG_LEN, "%s", text);
    return -1;
}

} // namespace

int gx_factory_readline(FILE *fp, char *buf, int size)
{
    if (fp == nullptr || buf == nullptr || size < 2)
        return -1;
    buf[0] = '\0';
    int lines = 0;
    int used = 0;
    while (size - used > 1 && fgets(buf + used, size - used, fp) != nullptr) {
        lines++;
        skip_rest_of_line(fp, buf + used);
        trim(buf + used);
        int len = static_cast<int>(strlen(buf));
        while (len > 0 && is_space(buf[len - 1]))
            buf[--len] = '\0';
        if (len == 0 || buf[len - 1] != '\\')
            return lines;
        // A continued line: the backslash becomes one blank between the two parts.
        buf[len - 1] = ' ';
        while (len > 0 && buf[len - 1] == ' ')
            buf[--len] = '\0';
        buf[len++] = ' ';
        buf[len] = '\0';
        used = len;
    }
    return lines > 0 ? lines : -1;
}

int gx_factory_tokenize(gx_deftokens *entry, const char *line, int *errnum, char *message)
{
    for (int &offset : entry->offsets)
        offset = -1;
    entry->count = 0;

    int quotes = squeeze_line(entry->text, line != nullptr ? line : "");
    if (entry->text[0] == '\0')
        return 0;
    if (quotes % 2 != 0)
        return tokenize_error(errnum, message, GX_DEFTOKENS_ERR_UNBALANCED,
                              "Unbalanced quotes in objedit entry");

    int count = split_tokens(entry);
    if (count < 0) {
        for (int &offset : entry->offsets)
            offset = -1;
        char text[GX_DEFTOKENS_MSG_LEN];
        snprintf(text, sizeof text, "Token/keyword count in objedit entry exceeds %d",
                 GX_DEFTOKENS_MAX);
        return tokenize_error(errnum, message, GX_DEFTOKENS_ERR_TOO_MANY, text);
    }
    entry->count = count;
    return count;
}

const char *gx_factory_token(const gx_deftokens *entry, int i)
{
    if (entry == nullptr || i < 0 || i >= GX_DEFTOKENS_MAX || entry->offsets[i] < 0)
        return nullptr;
    return entry->text + entry->offsets[i];
}

void gx_deffile_init(gx_deffile *file, FILE *fp)
{
    file->fp = fp;
    file->next_line = 1;
    file->line = 0;
}

int gx_deffile_next(gx_deffile *file, gx_deftokens *entry, int *errnum, char *message)
{
    char line[GX_DEFTOKENS_TEXT_LEN];
    int consumed;
    while ((consumed = gx_factory_readline(file->fp, line, sizeof line)) >= 0) {
        file->line = file->next_line;
        file->next_line += consumed;
        if (line[0] == '\0' || line[0] == '#')
            continue;
        int count = gx_factory_tokenize(entry, line, errnum, message);
        if (count != 0)
            return count;
    }
    return 0;
}
