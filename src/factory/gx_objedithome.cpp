// gx_objedithome.cpp -- the user definition directory: reading its files, looking entries up.
//
// The directory holds one file per type, named after the type ("datum", or "datum.txt" when
// there is no "datum").  Each line is one entry in the syntax of the built-in definition data;
// a line whose keyword, token count or code is wrong is reported and skipped, and the other
// lines still load.  The entries of a file are kept sorted by code (and by line for equal
// codes, the first one winning), and the files in a list.
//
// The definitions are process-wide and unguarded.  They are read when the directory is set to
// a string other than the current one -- by a call, by gx_factory_init, or by the first lookup
// from GXOBJEDITHOME -- and dropped by gx_factory_uninit.  A record made from an entry is kept
// with it, so what a lookup returns lives as long as the definitions.
#include "factory/gx_objedithome.h"

#include "factory/gx_defstring_compare.h"
#include "factory/gx_objedit_record.h"

#include <stdlib.h>
#include <string.h>

namespace {

constexpr int dir_max = 245;       // characters of the directory
constexpr int file_name_len = 256; // the file name as opened, including the NUL
constexpr int path_len = dir_max + 1 + file_name_len;

struct entry_node {
    entry_node *next; // while the file is read
    int code;
    int line; // where the entry begins
    gx_deftokens *tokens;
    gx_defrec *record; // made on the first lookup that finds the entry sound
};

struct file_node {
    file_node *next;
    int type;
    char name[file_name_len];
    entry_node **entries; // ascending by (code, line)
    int count;
};

file_node *files = nullptr;
char directory[dir_max + 1] = "";
int type_mask = 0;
bool directory_set = false;

// ---- entries ---------------------------------------------------------------------------------

void entry_del(entry_node *entry)
{
    gx_deallocate_rtn(entry->record);
    gx_deallocate_rtn(entry->tokens);
    gx_deallocate_rtn(entry);
}

void entry_list_del(entry_node *head)
{
    while (head != nullptr) {
        entry_node *next = head->next;
        entry_del(head);
        head = next;
    }
}

entry_node *entry_new(const gx_deftokens *tokens, int code, int line)
{
    auto *entry = static_cast<entry_node *>(gx_allocate_rtn(sizeof(entry_node)));
    auto *copy = static_cast<gx_deftokens *>(gx_allocate_rtn(sizeof(gx_deftokens)));
    if (entry == nullptr || copy == nullptr) {
        gx_deallocate_rtn(entry);
        gx_deallocate_rtn(copy);
        return nullptr;
    }
    memcpy(copy, tokens, sizeof *copy);
    *entry = {nullptr, code, line, copy, nullptr};
    return entry;
}

int entry_compare(const void *a, const void *b)
{
    const entry_node *x = *static_cast<entry_node *const *>(a);
    const entry_node *y = *static_cast<entry_node *const *>(b);
    if (x->code != y->code)
        return x->code < y->code ? -1 : 1;
    return (x->line > y->line) - (x->line < y->line);
}

// The list as an array sorted by (code, line), or null when memory runs out.
entry_node **entries_sorted(entry_node *head, int count)
{
    // An array of pointers to the nodes: sizeof a pointer is meant.
    auto **array = static_cast<entry_node **>(
        gx_allocate_rtn(sizeof(entry_node *) * count)); // NOLINT(bugprone-sizeof-expression)
    if (array == nullptr)
        return nullptr;
    for (int i = 0; i < count; i++, head = head->next)
        array[i] = head;
    qsort(array, count, sizeof *array, entry_compare); // NOLINT(bugprone-sizeof-expression)
    return array;
}

// ---- files -----------------------------------------------------------------------------------

void file_del(file_node *file)
{
    for (int i = 0; i < file->count; i++)
        entry_del(file->entries[i]);
    gx_deallocate_rtn(file->entries);
    gx_deallocate_rtn(file);
}

void file_list_del(file_node *head)
{
    while (head != nullptr) {
        file_node *next = head->next;
        file_del(head);
        head = next;
    }
}

// Opens dir/<name>, or dir/<name>.txt when there is no dir/<name>; name receives the form
// used.  Null when neither can be read.
FILE *open_definitions(const char *dir, const char *type_name, char name[file_name_len])
{
    char path[path_len];
    snprintf(name, file_name_len, "%s", type_name);
    snprintf(path, sizeof path, "%s", dir);
    gx_filecat(path, name);
    if (!gx_file_exists(path)) {
        strcat(name, ".txt");
        strcat(path, ".txt");
    }
    return gx_file_exists(path) ? fopen(path, "r") : nullptr;
}

void report(gx_err_rec *err, unsigned int number, const char *context, const char *format, ...)
    GX_PRINTF(4, 5);

void report(gx_err_rec *err, unsigned int number, const char *context, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(err, GX_ERRLVL_WARNING, GX_ERRCAT_OBJEDIT, number, context, format, args);
    va_end(args);
}

// The code of token 1: a decimal number, nothing else (0 otherwise, which no range holds).
int code_of(const char *text)
{
    char *end;
    long code = strtol(text, &end, 10);
    if (end == text || *end != '\0' || code < 0 || code > 0x7fffffffL)
        return 0;
    return static_cast<int>(code);
}

// Whether an entry has the keyword, token count and code of its file; reports why not.
bool entry_fits(const gx_objedit_layout *layout, const gx_deftokens *tokens, const char *context,
                gx_err_rec *err)
{
    const char *keyword = gx_factory_token(tokens, 0);
    if (gx_defstring_compare(keyword, layout->name) != 0) {
        report(err, 104, context, "Invalid object name \"%s\" in objedit entry", keyword);
        return false;
    }
    if (tokens->count < layout->min_tokens ||
        (!layout->more_allowed && tokens->count != layout->min_tokens)) {
        report(err, 103, context, "Invalid token/keyword count for a \"%s\" in objedit entry",
               keyword);
        return false;
    }
    const char *code_text = gx_factory_token(tokens, 1);
    if (!gx_factory_coderanges_check_type(layout->type, code_of(code_text))) {
        report(err, 101, context, "Code value (%s) in objedit entry out of range", code_text);
        return false;
    }
    return true;
}

void line_context(char *context, const char *name, int line)
{
    snprintf(context, GX_OBJEDIT_CONTEXT_LEN, "objedit file \"%s\" line %d", name, line);
}

// The sound entries of a file, newest first; *count receives how many.
entry_node *read_entries(FILE *fp, const char *name, const gx_objedit_layout *layout,
                         gx_err_rec *err, int *count)
{
    gx_deffile file;
    gx_deffile_init(&file, fp);
    gx_deftokens tokens;
    int errnum = 0;
    char message[GX_DEFTOKENS_MSG_LEN];
    entry_node *head = nullptr;
    int n;
    *count = 0;
    while ((n = gx_deffile_next(&file, &tokens, &errnum, message)) != 0) {
        char context[GX_OBJEDIT_CONTEXT_LEN];
        line_context(context, name, file.line);
        if (n < 0) {
            gx_err_str(err, GX_ERRLVL_WARNING, GX_ERRCAT_OBJEDIT, errnum, context, message);
            continue;
        }
        if (!entry_fits(layout, &tokens, context, err))
            continue;
        entry_node *entry = entry_new(&tokens, code_of(gx_factory_token(&tokens, 1)), file.line);
        if (entry == nullptr) {
            gx_err_str(err, GX_ERRLVL_ERROR, GX_ERRCAT_MEMORY, 1, context, "No memory");
            continue;
        }
        entry->next = head;
        head = entry;
        (*count)++;
    }
    return head;
}

// Entries with the code of the one before them are kept (the first one wins) and reported.
void report_duplicates(entry_node *const *entries, int count, const char *name, gx_err_rec *err)
{
    for (int i = 1; i < count; i++) {
        if (entries[i]->code != entries[i - 1]->code)
            continue;
        char context[GX_OBJEDIT_CONTEXT_LEN];
        line_context(context, name, entries[i]->line);
        report(err, 102, context, "Code (%d) duplicates the code at objedit line %d",
               entries[i]->code, entries[i - 1]->line);
    }
}

// Reads the file of one type into a new node in front of `list` and adds the type to *mask
// when it holds at least one sound entry.  Errors go to err (may be null).
file_node *list_add(file_node *list, int *mask, const char *dir, const gx_objedit_layout *layout,
                    gx_err_rec *err)
{
    gx_err_rec local;
    gx_err_rec *rec = err != nullptr ? err : &local;
    gx_err_clear(rec);

    char name[file_name_len];
    FILE *fp = open_definitions(dir, layout->name, name);
    if (fp == nullptr)
        return list;
    int count;
    entry_node *head = read_entries(fp, name, layout, rec, &count);
    fclose(fp);
    if (head == nullptr)
        return list;

    auto *file = static_cast<file_node *>(gx_allocate_rtn(sizeof(file_node)));
    entry_node **entries = file != nullptr ? entries_sorted(head, count) : nullptr;
    if (entries == nullptr) {
        gx_err_str(rec, GX_ERRLVL_ERROR, GX_ERRCAT_MEMORY, 1, "gx_objedithome_list_add",
                   "No memory");
        gx_deallocate_rtn(file);
        entry_list_del(head);
        return list;
    }
    report_duplicates(entries, count, name, rec);
    file->next = list;
    file->type = layout->type;
    memcpy(file->name, name, sizeof file->name);
    file->entries = entries;
    file->count = count;
    *mask |= layout->type;
    return file;
}

// ---- lookup ----------------------------------------------------------------------------------

const file_node *file_of_type(int type)
{
    for (const file_node *file = files; file != nullptr; file = file->next)
        if (file->type == type)
            return file;
    return nullptr;
}

// The first entry of a code in a file, by binary search.
entry_node *first_with_code(const file_node *file, int code)
{
    int low = 0;
    int high = file->count;
    while (low < high) {
        int mid = low + (high - low) / 2;
        if (file->entries[mid]->code < code)
            low = mid + 1;
        else
            high = mid;
    }
    return low < file->count && file->entries[low]->code == code ? file->entries[low] : nullptr;
}

// The entry of (type, code) and its file, or null; reads the directory on first use.
entry_node *find_entry(int type, int code, const file_node **file_out)
{
    if (!directory_set)
        gx_factory_init(0, 1);
    const gx_objedit_layout *layout = gx_objedit_layout_of(type);
    if (layout == nullptr || (type_mask & layout->type) == 0)
        return nullptr;
    const file_node *file = file_of_type(layout->type);
    entry_node *entry = file != nullptr ? first_with_code(file, code) : nullptr;
    if (entry != nullptr)
        *file_out = file;
    return entry;
}

void entry_context(char *context, const file_node *file, const entry_node *entry)
{
    snprintf(context, GX_OBJEDIT_CONTEXT_LEN, "objedit file \"%s\" line %d code %d", file->name,
             entry->line, entry->code);
}

} // namespace

// ---- the directory ---------------------------------------------------------------------------

int gx_objedithome_setdir(const char *dir)
{
    directory_set = true;
    if (dir == nullptr)
        dir = "";
    if (strlen(dir) > static_cast<size_t>(dir_max) || strcmp(dir, directory) == 0)
        return type_mask;

    type_mask = 0;
    file_list_del(files);
    files = nullptr;
    strcpy(directory, dir);
    if (dir[0] != '\0' && gx_dir_exists(dir))
        for (const gx_objedit_layout *layout = gx_objedit_layouts; layout->type != 0; layout++)
            files = list_add(files, &type_mask, dir, layout, nullptr);
    return type_mask;
}

int gx_objedithome_setfunc(const char *(*routine)(void))
{
    return gx_objedithome_setdir(routine != nullptr ? routine() : nullptr);
}

int gx_objedithome_is_set(void) { return directory_set ? 1 : 0; }

int gx_factory_init(int, int register_exit)
{
    if (directory_set)
        return 1;
    int mask = gx_objedithome_setdir(gx_getenv("GXOBJEDITHOME"));
    if (register_exit == 0 || mask == 0)
        return mask;
    return gx_atexit(gx_factory_uninit);
}

void gx_factory_uninit(void) { gx_objedithome_setdir(nullptr); }

// ---- lookups ---------------------------------------------------------------------------------

const gx_deftokens *gx_objedithome_find(int type, int code, char *context)
{
    if (context != nullptr)
        context[0] = '\0';
    const file_node *file = nullptr;
    const entry_node *entry = find_entry(type, code, &file);
    if (entry == nullptr)
        return nullptr;
    if (context != nullptr)
        entry_context(context, file, entry);
    return entry->tokens;
}

const gx_defrec *gx_objedit_find(int type, int code, gx_err_rec *err)
{
    const file_node *file = nullptr;
    entry_node *entry = find_entry(type, code, &file);
    if (entry == nullptr)
        return nullptr;
    char context[GX_OBJEDIT_CONTEXT_LEN];
    entry_context(context, file, entry);
    // The entry is checked at every lookup, so that its warnings reach every caller; the
    // record of the first sound lookup is the one kept.
    gx_defrec *record =
        gx_objedit_record_new(gx_objedit_layout_of(file->type), entry->tokens, context, err);
    if (record == nullptr)
        return nullptr;
    if (entry->record == nullptr)
        entry->record = record;
    else
        gx_deallocate_rtn(record);
    return entry->record;
}
