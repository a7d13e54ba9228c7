// gx_gendefs -- turns the built-in definition data into C++ sources of constant tables.
//
//   gx_gendefs DATA_DIR OUT_DIR
//
// reads DATA_DIR/<type>.txt (one definition a line, in the user-definition syntax),
// macros.txt, changes.txt and accuracy.txt, checks them, and writes into OUT_DIR:
//
//   gx_defdata_<type>.cpp   the type's records, ascending by code (see gx_defdata.h)
//   gx_defdata_macros.cpp   the macro tables gx_<type>_deftbl, sorted by macro name
//   gx_defdata_changes.cpp  the changed-code pairs gx_factory_<type>_codechange_codes
//   gx_defdata_accuracy.cpp the accuracy table gx_nga_geogtran_errors
//
// The output depends on the input only (no dates, no paths, numbers written exactly with
// %.17g), so the same data gives byte-identical sources.  Malformed data stops the build with
// "file:line: message" on stderr and exit status 1.
#include "factory/gx_defstring_compare.h"
#include "factory/gx_deftokens.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

// ---- what differs between the definition types ------------------------------------------------

enum class Items {
    none,           // nothing after the fixed fields
    unit_and_parms, // a linear unit code (one token) and parameter pairs, in any order
    parms           // parameter pairs
};

struct Layout {
    const char *type;
    int comps;  // component codes after the name
    int values; // numbers after the components
    Items items;
};

constexpr Layout layouts[] = {
    {"unit", 0, 1, Items::none},
    {"spheroid", 0, 2, Items::none},
    {"primem", 0, 1, Items::none},
    {"datum", 1, 0, Items::none},
    {"vdatum", 0, 0, Items::none},
    {"geogcs", 3, 0, Items::none},
    {"projcs", 2, 0, Items::unit_and_parms},
    {"vertcs", 1, 0, Items::unit_and_parms},
    {"geogtran", 3, 0, Items::parms},
    {"verttran", 4, 0, Items::parms},
};

// The macro tables, in the order they are written; hvcoordsys has no definitions.
constexpr const char *macro_tables[] = {
    "geogcs", "projcs",   "vertcs", "hvcoordsys", "datum",      "vdatum",    "geogtran", "unit",
    "primem", "spheroid", "method", "htmethod",   "projection", "parameter", "vtmethod", "verttran",
};

// The types that have changed-code lists (the factory's types).
constexpr const char *change_types[] = {
    "datum",    "geogcs", "geogtran", "hvcoordsys", "primem",   "projcs",
    "spheroid", "unit",   "vdatum",   "vertcs",     "verttran",
};

constexpr int parameter_low = 100000; // the parameter codes
constexpr int parameter_high = 100099;
constexpr int dataset_parameter = 100047; // its value is a dataset name

// ---- records -----------------------------------------------------------------------------------

struct Parm {
    int code = 0;
    double value = 0;
    std::string text; // dataset name
};

struct Def {
    int code = 0;
    std::string name;
    int comp[4] = {0, 0, 0, 0};
    double value[2] = {0, 0};
    std::vector<Parm> parms;
};

struct Macro {
    int code;
    std::string macro;
};

struct Change {
    int requested;
    int replacement;
};

struct Accuracy {
    std::string agency;
    int code;
    double e[3];
};

struct Database {
    std::map<std::string, std::vector<Def>> defs;       // by type, ascending by code
    std::map<std::string, std::vector<Macro>> macros;   // by table, sorted by macro
    std::map<std::string, std::vector<Change>> changes; // by type, in file order
    std::vector<Accuracy> accuracy;
};

// ---- reading -----------------------------------------------------------------------------------

// Where a token comes from, for messages.
struct Where {
    std::string file;
    int line;
};

[[noreturn]] void fail(const Where &where, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    fprintf(stderr, "%s:%d: ", where.file.c_str(), where.line);
    vfprintf(stderr, format, args);
    fputc('\n', stderr);
    va_end(args);
    exit(1);
}

bool parse_int(const char *text, int *out)
{
    errno = 0;
    char *end;
    long v = strtol(text, &end, 10);
    if (end == text || *end != '\0' || errno != 0 || v < -2147483647L || v > 2147483647L)
        return false;
    *out = static_cast<int>(v);
    return true;
}

double number_token(const Where &where, const char *text)
{
    errno = 0;
    char *end;
    double v = strtod(text, &end);
    if (end == text || *end != '\0' || errno != 0 || !std::isfinite(v))
        fail(where, "not a number: \"%s\"", text);
    return v;
}

// The macro tables are read first, so that component codes may be written as macro names,
// as in user definition files.
const Macro *find_macro(const Database &db, const char *name)
{
    for (const auto &[table, rows] : db.macros) {
        auto it =
            std::lower_bound(rows.begin(), rows.end(), name, [](const Macro &m, const char *key) {
                return gx_defstring_compare(m.macro.c_str(), key) < 0;
            });
        if (it != rows.end() && gx_defstring_compare(it->macro.c_str(), name) == 0)
            return &*it;
    }
    return nullptr;
}

int code_token(const Database &db, const Where &where, const char *text)
{
    int code;
    if (parse_int(text, &code))
        return code;
    if (const Macro *m = find_macro(db, text))
        return m->code;
    fail(where, "not a code: \"%s\"", text);
}

// Reads every entry of a file, calling on_entry(tokens, where) for each.
template <typename OnEntry>
void read_file(const std::string &dir, const std::string &file, OnEntry on_entry)
{
    std::string path = dir + "/" + file;
    FILE *fp = fopen(path.c_str(), "r");
    if (fp == nullptr)
        fail({file, 0}, "cannot open %s", path.c_str());
    gx_deffile reader;
    gx_deffile_init(&reader, fp);
    gx_deftokens entry;
    int errnum = 0;
    char message[GX_DEFTOKENS_MSG_LEN];
    int count;
    while ((count = gx_deffile_next(&reader, &entry, &errnum, message)) != 0) {
        Where where{file, reader.line};
        if (count < 0)
            fail(where, "%s (%d)", message, errnum);
        on_entry(entry, where);
    }
    fclose(fp);
}

void check_type(const gx_deftokens &entry, const Where &where, const char *type)
{
    if (gx_defstring_compare(gx_factory_token(&entry, 0), type) != 0)
        fail(where, "entry of type \"%s\" in a %s file", gx_factory_token(&entry, 0), type);
}

// The items after the fixed fields: parameter pairs, and for unit_and_parms one unit code,
// which goes to the component slot after the fixed ones.
void read_items(const Database &db, const gx_deftokens &entry, const Where &where,
                const Layout &layout, int first, Def &def)
{
    bool have_unit = false;
    for (int i = first; i < entry.count; i++) {
        const char *token = gx_factory_token(&entry, i);
        int code = code_token(db, where, token);
        if (code < parameter_low || code > parameter_high) {
            if (layout.items != Items::unit_and_parms || have_unit)
                fail(where, "\"%s\" is not a parameter code", token);
            def.comp[layout.comps] = code;
            have_unit = true;
            continue;
        }
        if (++i >= entry.count)
            fail(where, "parameter %d has no value", code);
        Parm parm;
        parm.code = code;
        if (code == dataset_parameter)
            parm.text = gx_factory_token(&entry, i);
        else
            parm.value = number_token(where, gx_factory_token(&entry, i));
        def.parms.push_back(parm);
    }
    if (layout.items == Items::unit_and_parms && !have_unit)
        fail(where, "no unit code");
}

Def read_def(const Database &db, const gx_deftokens &entry, const Where &where,
             const Layout &layout)
{
    check_type(entry, where, layout.type);
    int fixed = 3 + layout.comps + layout.values;
    if (entry.count < fixed || (layout.items == Items::none && entry.count != fixed))
        fail(where, "%d tokens in a %s entry", entry.count, layout.type);

    Def def;
    if (!parse_int(gx_factory_token(&entry, 1), &def.code))
        fail(where, "bad code \"%s\"", gx_factory_token(&entry, 1));
    def.name = gx_factory_token(&entry, 2);
    if (def.name.empty())
        fail(where, "no name");
    int t = 3;
    for (int i = 0; i < layout.comps; i++)
        def.comp[i] = code_token(db, where, gx_factory_token(&entry, t++));
    for (int i = 0; i < layout.values; i++)
        def.value[i] = number_token(where, gx_factory_token(&entry, t++));
    if (layout.items != Items::none)
        read_items(db, entry, where, layout, t, def);
    return def;
}

void read_defs(Database &db, const std::string &dir, const Layout &layout)
{
    std::string file = std::string(layout.type) + ".txt";
    std::vector<Def> &defs = db.defs[layout.type];
    std::map<int, int> line_of;
    read_file(dir, file, [&](const gx_deftokens &entry, const Where &where) {
        Def def = read_def(db, entry, where, layout);
        if (!line_of.emplace(def.code, where.line).second)
            fail(where, "code %d already defined at line %d", def.code, line_of[def.code]);
        defs.push_back(std::move(def));
    });
    std::sort(defs.begin(), defs.end(), [](const Def &a, const Def &b) { return a.code < b.code; });
}

bool is_macro_table(const char *type)
{
    for (const char *table : macro_tables)
        if (gx_defstring_compare(table, type) == 0)
            return true;
    return false;
}

void read_macros(Database &db, const std::string &dir)
{
    for (const char *table : macro_tables)
        db.macros[table];
    read_file(dir, "macros.txt", [&](const gx_deftokens &entry, const Where &where) {
        const char *type = gx_factory_token(&entry, 0);
        if (entry.count != 3 || !is_macro_table(type))
            fail(where, "expected: type, code, macro name");
        Macro macro;
        if (!parse_int(gx_factory_token(&entry, 1), &macro.code) || macro.code == 0)
            fail(where, "bad code \"%s\"", gx_factory_token(&entry, 1));
        macro.macro = gx_factory_token(&entry, 2);
        db.macros[type].push_back(macro);
    });
    for (auto &[table, rows] : db.macros) {
        std::sort(rows.begin(), rows.end(), [](const Macro &a, const Macro &b) {
            return gx_defstring_compare(a.macro.c_str(), b.macro.c_str()) < 0;
        });
        for (size_t i = 1; i < rows.size(); i++)
            if (gx_defstring_compare(rows[i - 1].macro.c_str(), rows[i].macro.c_str()) == 0)
                fail({"macros.txt", 0}, "macro %s listed twice", rows[i].macro.c_str());
    }
}

bool has_def(const Database &db, const std::string &type, int code)
{
    auto it = db.defs.find(type);
    if (it == db.defs.end())
        return false;
    const std::vector<Def> &defs = it->second;
    auto found = std::lower_bound(defs.begin(), defs.end(), code,
                                  [](const Def &d, int key) { return d.code < key; });
    return found != defs.end() && found->code == code;
}

// Every macro of a type with definitions must name one of them.
void check_macro_codes(const Database &db)
{
    for (const auto &[table, rows] : db.macros) {
        if (db.defs.count(table) == 0)
            continue;
        for (const Macro &m : rows)
            if (!has_def(db, table, m.code))
                fail({"macros.txt", 0}, "%s names %d, which is not a %s", m.macro.c_str(), m.code,
                     table.c_str());
    }
}

bool is_change_type(const char *type)
{
    for (const char *t : change_types)
        if (gx_defstring_compare(t, type) == 0)
            return true;
    return false;
}

void read_changes(Database &db, const std::string &dir)
{
    for (const char *type : change_types)
        db.changes[type];
    read_file(dir, "changes.txt", [&](const gx_deftokens &entry, const Where &where) {
        const char *type = gx_factory_token(&entry, 0);
        Change change;
        if (entry.count != 3 || !is_change_type(type) ||
            !parse_int(gx_factory_token(&entry, 1), &change.requested) ||
            !parse_int(gx_factory_token(&entry, 2), &change.replacement) || change.requested == 0)
            fail(where, "expected: type, requested code, replacement code");
        if (has_def(db, type, change.requested))
            fail(where, "changed code %d is still defined", change.requested);
        if (!has_def(db, type, change.replacement))
            fail(where, "replacement %d is not a %s", change.replacement, type);
        db.changes[type].push_back(change);
    });
}

void read_accuracy(Database &db, const std::string &dir)
{
    read_file(dir, "accuracy.txt", [&](const gx_deftokens &entry, const Where &where) {
        Accuracy row;
        if (entry.count != 5 || !parse_int(gx_factory_token(&entry, 1), &row.code))
            fail(where, "expected: \"agency code\", transformation code, ex, ey, ez");
        row.agency = gx_factory_token(&entry, 0);
        for (int i = 0; i < 3; i++)
            row.e[i] = number_token(where, gx_factory_token(&entry, 2 + i));
        if (!has_def(db, "geogtran", row.code))
            fail(where, "%d is not a geographic transformation", row.code);
        if (!db.accuracy.empty() && db.accuracy.back().agency >= row.agency)
            fail(where, "agency codes out of order at \"%s\"", row.agency.c_str());
        db.accuracy.push_back(row);
    });
}

// ---- writing -----------------------------------------------------------------------------------

// A C++ string literal holding text.
std::string literal(const std::string &text)
{
    std::string out = "\"";
    for (unsigned char c : text) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20 || c >= 0x7f) {
            char octal[8];
            snprintf(octal, sizeof octal, "\\%03o", c);
            out += octal;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out + "\"";
}

// A double literal that reads back to exactly v (17 significant digits always suffice).
std::string number(double v)
{
    char buf[40];
    snprintf(buf, sizeof buf, "%.17g", v);
    std::string out = buf;
    if (out.find_first_of(".e") == std::string::npos)
        out += ".0";
    return out;
}

std::string header(const char *source)
{
    return std::string("// Generated by gx_gendefs from ") + source + ". Do not edit.\n";
}

void write_file(const std::string &dir, const std::string &name, const std::string &text)
{
    std::string path = dir + "/" + name;
    FILE *fp = fopen(path.c_str(), "wb");
    if (fp == nullptr || fwrite(text.data(), 1, text.size(), fp) != text.size() || fclose(fp) != 0)
        fail({path, 0}, "cannot write");
}

void append(std::string &out, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    char buf[512];
    vsnprintf(buf, sizeof buf, format, args);
    va_end(args);
    out += buf;
}

std::string parm_row(const Parm &p)
{
    std::string text = p.text.empty() ? "nullptr" : literal(p.text);
    return "    {" + std::to_string(p.code) + ", " + number(p.value) + ", " + text + "},\n";
}

std::string def_row(const Def &d, size_t parm_offset)
{
    std::string out = "    {" + std::to_string(d.code) + ", " + literal(d.name) + ", {";
    for (int i = 0; i < 4; i++)
        out += (i ? ", " : "") + std::to_string(d.comp[i]);
    out += "}, {" + number(d.value[0]) + ", " + number(d.value[1]) + "}, ";
    out += std::to_string(d.parms.size()) + ", ";
    out += d.parms.empty() ? std::string("nullptr") : "parms + " + std::to_string(parm_offset);
    return out + "},\n";
}

void write_defs(const Database &db, const std::string &dir, const Layout &layout)
{
    const std::vector<Def> &defs = db.defs.at(layout.type);
    std::string out = header((std::string(layout.type) + ".txt").c_str());
    out += "#include \"factory/gx_defdata.h\"\n\nnamespace {\n\n";

    size_t parm_count = 0;
    for (const Def &d : defs)
        parm_count += d.parms.size();
    if (parm_count > 0) {
        out += "constexpr gx_defparm parms[] = {\n";
        for (const Def &d : defs)
            for (const Parm &p : d.parms)
                out += parm_row(p);
        out += "};\n\n";
    }

    out += "constexpr gx_defrec rows[] = {\n";
    size_t offset = 0;
    for (const Def &d : defs) {
        out += def_row(d, offset);
        offset += d.parms.size();
    }
    out += "};\n\n} // namespace\n\n";
    append(out, "constinit const gx_deftable gx_defdata_%s = {rows, %zu};\n", layout.type,
           defs.size());
    write_file(dir, std::string("gx_defdata_") + layout.type + ".cpp", out);
}

void write_macros(const Database &db, const std::string &dir)
{
    std::string out = header("macros.txt");
    out += "#include \"gridex.h\"\n\nnamespace {\n";
    for (const char *table : macro_tables) {
        const std::vector<Macro> &rows = db.macros.at(table);
        if (rows.empty())
            continue;
        append(out, "\nconstexpr gx_deftbl_entry %s_rows[] = {\n", table);
        for (const Macro &m : rows)
            out += "    {" + std::to_string(m.code) + ", " + literal(m.macro) + "},\n";
        out += "};\n";
    }
    out += "\n} // namespace\n\nextern \"C\" {\n";
    for (const char *table : macro_tables) {
        size_t count = db.macros.at(table).size();
        if (count == 0)
            append(out, "constinit const gx_deftbl gx_%s_deftbl = {nullptr, 0};\n", table);
        else
            append(out, "constinit const gx_deftbl gx_%s_deftbl = {%s_rows, %zu};\n", table, table,
                   count);
    }
    out += "}\n";
    write_file(dir, "gx_defdata_macros.cpp", out);
}

void write_changes(const Database &db, const std::string &dir)
{
    std::string out = header("changes.txt");
    out += "#include \"factory/gx_defdata.h\"\n";
    for (const char *type : change_types) {
        append(out, "\nconstinit const int gx_factory_%s_codechange_codes[] = {\n", type);
        for (const Change &c : db.changes.at(type))
            append(out, "    %d, %d,\n", c.requested, c.replacement);
        out += "    0, 0,\n};\n";
    }
    write_file(dir, "gx_defdata_changes.cpp", out);
}

void write_accuracy(const Database &db, const std::string &dir)
{
    std::string out = header("accuracy.txt");
    out += "#include \"factory/gx_defdata.h\"\n\n";
    out += "constinit const gx_nga_error gx_nga_geogtran_errors[] = {\n";
    for (const Accuracy &a : db.accuracy)
        out += "    {" + literal(a.agency) + ", " + std::to_string(a.code) + ", " + number(a.e[0]) +
               ", " + number(a.e[1]) + ", " + number(a.e[2]) + "},\n";
    out += "    {nullptr, 0, 0.0, 0.0, 0.0},\n};\n\n";
    append(out, "constinit const int gx_nga_geogtran_error_count = %zu;\n", db.accuracy.size());
    write_file(dir, "gx_defdata_accuracy.cpp", out);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        fprintf(stderr, "usage: gx_gendefs DATA_DIR OUT_DIR\n");
        return 2;
    }
    std::string data_dir = argv[1];
    std::string out_dir = argv[2];

    Database db;
    read_macros(db, data_dir);
    for (const Layout &layout : layouts)
        read_defs(db, data_dir, layout);
    check_macro_codes(db);
    read_changes(db, data_dir);
    read_accuracy(db, data_dir);

    for (const Layout &layout : layouts)
        write_defs(db, out_dir, layout);
    write_macros(db, out_dir);
    write_changes(db, out_dir);
    write_accuracy(db, out_dir);
    return 0;
}
