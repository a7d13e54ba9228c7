// gx_objedit_record.cpp -- user definition entries made into definition records.
//
// A record has the shape of the built-in ones (gx_defdata.h), so the factory builds objects
// from either source alike.  What can be checked in the entry itself is checked here, with the
// token as the user wrote it in the message: values out of range, names that name no code,
// parameters given twice, without a value, or not taken by the object or its method.  Whether
// the components build is left to the factory.
#include "factory/gx_objedit_record.h"

#include <stdlib.h>
#include <string.h>

namespace {

constexpr int dataset_code = GX_DEFDATA_DATASET_PARM;
constexpr int max_parms = GX_DEFTOKENS_MAX / 2;
constexpr int max_method_parms = 16;

} // namespace

// Read in this order; the fields fill comp[] and value[] as gx_defdata.h lays them out.
const gx_objedit_layout gx_objedit_layouts[] = {
    {GX_TYPE_GEOGCS,
     "geogcs",
     6,
     false,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 206, "Invalid datum factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 1, GX_OBJEDIT_ANY, 213, "Invalid prime meridian factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 2, GX_OBJEDIT_NOT_LINEAR, 211,
       "Invalid angular unit factory code (%s)"}},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_PROJCS,
     "projcs",
     6,
     true,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 203, "Invalid geographic CS factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 1, GX_OBJEDIT_ANY, 217, "Invalid projection factory code (%s)"}},
     GX_OBJEDIT_UNIT_AND_PARMS,
     2,
     107,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_VERTCS,
     "vertcs",
     9,
     false,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 208,
       "Invalid datum or vertical datum factory code (%s)"}},
     GX_OBJEDIT_UNIT_AND_PARMS,
     1,
     107,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {{100007, 119, "Missing direction parameter in objedit entry"},
      {100006, 120, "Missing vertical shift parameter in objedit entry"}}},
    {GX_TYPE_DATUM,
     "datum",
     4,
     false,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 214, "Invalid spheroid factory code (%s)"}},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_VDATUM,
     "vdatum",
     3,
     false,
     {},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_GEOGTRAN,
     "geogtran",
     6,
     true,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 203, "Invalid geogcs1 factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 1, GX_OBJEDIT_ANY, 203, "Invalid geogcs2 factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 2, GX_OBJEDIT_ANY, 215, "Invalid method factory code (%s)"}},
     GX_OBJEDIT_PARMS,
     -1,
     102,
     GX_OBJEDIT_DATUM_SHIFT,
     2,
     {}},
    {GX_TYPE_UNIT,
     "unit",
     4,
     false,
     {{GX_OBJEDIT_VALUE, 0, GX_OBJEDIT_UNIT_FACTOR, 0, nullptr}},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_PRIMEM,
     "primem",
     4,
     false,
     {{GX_OBJEDIT_VALUE, 0, GX_OBJEDIT_LONGITUDE, 0, nullptr}},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_SPHEROID,
     "spheroid",
     5,
     false,
     {{GX_OBJEDIT_VALUE, 0, GX_OBJEDIT_AXIS, 0, nullptr},
      {GX_OBJEDIT_VALUE, 1, GX_OBJEDIT_INVERSE_FLATTENING, 0, nullptr}},
     GX_OBJEDIT_NO_ITEMS,
     -1,
     0,
     GX_OBJEDIT_NO_METHOD,
     -1,
     {}},
    {GX_TYPE_VERTTRAN,
     "verttran",
     7,
     true,
     {{GX_OBJEDIT_COMPONENT, 0, GX_OBJEDIT_ANY, 219, "Invalid coordsys factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 1, GX_OBJEDIT_ANY, 220, "Invalid vertcs1 factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 2, GX_OBJEDIT_ANY, 221, "Invalid vertcs2 factory code (%s)"},
      {GX_OBJEDIT_COMPONENT, 3, GX_OBJEDIT_HORIZONTAL_FITS, 222,
       "Invalid vtmethod factory code (%s)"}},
     GX_OBJEDIT_PARMS,
     -1,
     102,
     GX_OBJEDIT_HEIGHT,
     3,
     {}},
    {0, nullptr, 0, false, {}, GX_OBJEDIT_NO_ITEMS, -1, 0, GX_OBJEDIT_NO_METHOD, -1, {}},
};

const gx_objedit_layout *gx_objedit_layout_of(int type)
{
    if (type == GX_TYPE_LINUNIT || type == GX_TYPE_ANGUNIT)
        type = GX_TYPE_UNIT;
    for (const gx_objedit_layout *layout = gx_objedit_layouts; layout->type != 0; layout++)
        if (layout->type == type)
            return layout;
    return nullptr;
}

namespace {

// The messages of the value rules.
struct rule_message {
    gx_objedit_rule rule;
    unsigned int number;
    const char *format; // formatted with the token
};

constexpr rule_message rule_messages[] = {
    {GX_OBJEDIT_UNIT_FACTOR, 113, "Unit factor (%s) in objedit entry is <= 0"},
    {GX_OBJEDIT_AXIS, 111, "Semimajor axis (%s) in objedit entry is <= 0"},
    {GX_OBJEDIT_INVERSE_FLATTENING, 112,
     "Flattening inverse (%s) in objedit entry is not 0 and is < 1"},
    {GX_OBJEDIT_LONGITUDE, 114, "Longitude (%s) in objedit entry is < -180 or > 180"},
    {GX_OBJEDIT_NOT_LINEAR, 123, "Wrong unit type (%s) in objedit entry"},
    {GX_OBJEDIT_HORIZONTAL_FITS, 115, "Invalid coordsys type for vtmethod (%s) in object entry"},
};

// A record while it is being filled: texts still point into the entry.
struct draft {
    gx_defrec rec;
    gx_defparm parms[max_parms];
};

// The parameters a transformation's method takes.
struct method_parms {
    bool known;        // the method is in its registry
    bool needs_geogcs; // a height method that reads the points' positions
    int count;
    int codes[max_method_parms];
};

// Where the errors of one entry go, and whether the first one ends it.
struct checker {
    gx_err_rec *rec;
    bool stop_at_error;
    bool failed;
    const char *context;
};

void report(checker *c, unsigned int level, unsigned int number, const char *format, ...)
    GX_PRINTF(4, 5);

void report(checker *c, unsigned int level, unsigned int number, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(c->rec, level, GX_ERRCAT_OBJEDIT, number, c->context, format, args);
    va_end(args);
    if (level == GX_ERRLVL_ERROR)
        c->failed = true;
}

bool going_on(const checker *c) { return !(c->failed && c->stop_at_error); }

const char *token(const gx_deftokens *entry, int i)
{
    const char *text = gx_factory_token(entry, i);
    return text != nullptr ? text : "";
}

int field_count(const gx_objedit_layout *layout)
{
    int n = 0;
    while (n < 4 && layout->fields[n].use != GX_OBJEDIT_UNUSED)
        n++;
    return n;
}

// The token that gives comp[slot].
const char *component_token(const gx_objedit_layout *layout, const gx_deftokens *entry, int slot)
{
    for (int i = 0; i < field_count(layout); i++)
        if (layout->fields[i].use == GX_OBJEDIT_COMPONENT && layout->fields[i].slot == slot)
            return token(entry, 3 + i);
    return "";
}

bool is_unit_code(int code)
{
    int type = gx_factory_coderanges_type(code);
    return type == GX_TYPE_LINUNIT || type == GX_TYPE_ANGUNIT;
}

bool in_list(const int *codes, int count, int code)
{
    for (int i = 0; i < count; i++)
        if (codes[i] == code)
            return true;
    return false;
}

bool has_parm(const draft *d, int code)
{
    for (int i = 0; i < d->rec.parm_count; i++)
        if (d->parms[i].code == code)
            return true;
    return false;
}

// Collects the codes of the parameters in a default set, releasing them.
void collect_codes(gx_parameter *slots[16], method_parms *set)
{
    for (int i = 0; i < 16; i++) {
        if (slots[i] != nullptr)
            set->codes[set->count++] = gx_object_code(slots[i]);
        gx_object_del(slots[i]);
    }
}

// The parameter set of a datum-shift or height method from its registry; not known for an
// unknown method (the factory reports it) or when its objects cannot be made.
method_parms datum_shift_parms(int code)
{
    method_parms set{};
    if (gx_methlist_from_code(code) == nullptr)
        return set;
    gx_method *method = gx_methlist_method_from_code(code, nullptr);
    gx_parameter *slots[16] = {};
    set.known = method != nullptr;
    gx_parameter_method_defaults(method, slots);
    gx_object_del(method);
    collect_codes(slots, &set);
    return set;
}

method_parms height_parms(int code)
{
    method_parms set{};
    const gx_vtmethlist_entry *row = gx_vtmethlist_from_code(code);
    if (row == nullptr)
        return set;
    gx_vtmethod *vtmethod = gx_vtmethlist_vtmethod_from_code(code, nullptr);
    gx_parameter *slots[16] = {};
    set.known = vtmethod != nullptr;
    set.needs_geogcs = row->horizontal != 0;
    gx_parameter_vtmethod_defaults(vtmethod, slots);
    gx_object_del(vtmethod);
    collect_codes(slots, &set);
    return set;
}

method_parms parameters_of_method(gx_objedit_method kind, int code)
{
    switch (kind) {
    case GX_OBJEDIT_DATUM_SHIFT:
        return datum_shift_parms(code);
    case GX_OBJEDIT_HEIGHT:
        return height_parms(code);
    case GX_OBJEDIT_NO_METHOD:
        break;
    }
    return method_parms{};
}

// A height method that reads positions wants a geographic CS.  A code of any other kind than
// none, geographic or projected is the factory's to report.
bool horizontal_fits(int horizontal_code, const method_parms *set)
{
    if (!set->known || !set->needs_geogcs)
        return true;
    int type = horizontal_code != 0 ? gx_factory_coderanges_type(horizontal_code) : 0;
    return type == GX_TYPE_GEOGCS || (type != 0 && type != GX_TYPE_PROJCS);
}

bool rule_holds(gx_objedit_rule rule, double value, int code, const draft *d,
                const method_parms *set)
{
    switch (rule) {
    case GX_OBJEDIT_ANY:
        return true;
    case GX_OBJEDIT_UNIT_FACTOR:
    case GX_OBJEDIT_AXIS:
        return value > 0;
    case GX_OBJEDIT_INVERSE_FLATTENING:
        return value == 0 || value >= 1;
    case GX_OBJEDIT_LONGITUDE:
        return value >= -180 && value <= 180;
    case GX_OBJEDIT_NOT_LINEAR:
        return gx_factory_coderanges_type(code) != GX_TYPE_LINUNIT;
    case GX_OBJEDIT_HORIZONTAL_FITS:
        return horizontal_fits(d->rec.comp[0], set);
    }
    return true;
}

void report_rule(checker *c, gx_objedit_rule rule, const char *text)
{
    for (const rule_message &m : rule_messages)
        if (m.rule == rule)
            report(c, GX_ERRLVL_ERROR, m.number, m.format, text);
}

// A code token: a number or a macro name.  0 is a code ("none" where the record allows it);
// a name that names nothing is an error.
int read_component(checker *c, const gx_objedit_field *field, const char *text)
{
    int code = gx_factory_defstring_to_int(text);
    if (code == 0 && strcmp(text, "0") != 0)
        report(c, GX_ERRLVL_ERROR, field->unknown_number, field->unknown_format, text);
    return code;
}

// Tokens 3 onward up to the items.  The method's parameter set is known once its code is.
void read_fields(checker *c, const gx_objedit_layout *layout, const gx_deftokens *entry, draft *d,
                 method_parms *set)
{
    for (int i = 0; i < field_count(layout) && going_on(c); i++) {
        const gx_objedit_field *field = &layout->fields[i];
        const char *text = token(entry, 3 + i);
        double value = 0;
        int code = 0;
        if (field->use == GX_OBJEDIT_COMPONENT) {
            code = read_component(c, field, text);
            d->rec.comp[field->slot] = code;
            if (field->slot == layout->method_slot)
                *set = parameters_of_method(layout->method, code);
        } else {
            value = gx_atod(text);
            d->rec.value[field->slot] = value;
        }
        if (going_on(c) && !rule_holds(field->rule, value, code, d, set))
            report_rule(c, field->rule, text);
    }
}

// Whether a parameter belongs in the entry; reports why not.  A parameter outside a height
// method's set is only warned of.
bool parameter_allowed(checker *c, const gx_objedit_layout *layout, const gx_deftokens *entry,
                       const method_parms *set, const gx_parmlist_entry *row, const char *text)
{
    bool usable = (row->usage & static_cast<unsigned int>(layout->type)) != 0;
    if (layout->method == GX_OBJEDIT_DATUM_SHIFT && set->known)
        usable = in_list(set->codes, set->count, row->code);
    if (!usable) {
        report(c, GX_ERRLVL_ERROR, 110, "Invalid parameter code (%s) for a %s in objedit entry",
               text, layout->name);
        return false;
    }
    if (layout->method == GX_OBJEDIT_HEIGHT && set->known &&
        !in_list(set->codes, set->count, row->code))
        report(c, GX_ERRLVL_WARNING, 108, "Extra parameter for vtmethod (%s) in objedit entry",
               component_token(layout, entry, layout->method_slot));
    return true;
}

void add_parm(draft *d, int code, const char *value)
{
    gx_defparm *parm = &d->parms[d->rec.parm_count++];
    parm->code = code;
    parm->value = code == dataset_code ? 0 : gx_atod(value);
    parm->text = code == dataset_code ? value : nullptr;
}

// The items after the fields: parameter codes each followed by its value, and where the type
// has one, the unit code (a later unit item replaces an earlier one).
void read_items(checker *c, const gx_objedit_layout *layout, const gx_deftokens *entry, draft *d,
                const method_parms *set)
{
    bool have_unit = false;
    for (int i = 3 + field_count(layout); i < entry->count && going_on(c); i++) {
        const char *text = token(entry, i);
        int code = gx_factory_defstring_to_int(text);
        const gx_parmlist_entry *row = gx_parmlist_from_code(code);
        if (row == nullptr) {
            if (layout->unit_slot >= 0 && is_unit_code(code)) {
                d->rec.comp[layout->unit_slot] = code;
                have_unit = true;
            } else {
                report(c, GX_ERRLVL_ERROR, 218, "Invalid parameter factory code (%s)", text);
            }
            continue;
        }
        bool allowed = parameter_allowed(c, layout, entry, set, row, text);
        if (allowed && has_parm(d, code)) {
            report(c, GX_ERRLVL_ERROR, layout->duplicate_number,
                   "Duplicate parameter code (%s) in objedit entry", text);
            allowed = false;
        }
        if (i + 1 >= entry->count) {
            if (going_on(c))
                report(c, GX_ERRLVL_ERROR, 116, "Missing value for parameter (%s) in objedit entry",
                       text);
            break;
        }
        i++;
        if (allowed)
            add_parm(d, code, token(entry, i));
    }
    if (layout->unit_slot >= 0 && !have_unit && going_on(c))
        report(c, GX_ERRLVL_ERROR, 121, "Missing unit in objedit entry");
}

// What the whole parameter list must satisfy.
void check_parameters(checker *c, const gx_objedit_layout *layout, const gx_deftokens *entry,
                      const draft *d, const method_parms *set)
{
    for (const gx_objedit_expected &expected : layout->expected)
        if (expected.code != 0 && !has_parm(d, expected.code))
            report(c, GX_ERRLVL_WARNING, expected.number, "%s", expected.message);
    if (!set->known || !going_on(c))
        return;
    if (layout->method == GX_OBJEDIT_DATUM_SHIFT && d->rec.parm_count != set->count)
        report(c, GX_ERRLVL_ERROR, 109, "Number of parameters (%d) in objedit entry should be %d",
               d->rec.parm_count, set->count);
    if (layout->method != GX_OBJEDIT_HEIGHT)
        return;
    // A grid method without its dataset name is told apart from a formula method without one
    // of its values.
    for (int i = 0; i < set->count; i++) {
        if (!has_parm(d, set->codes[i])) {
            report(c, GX_ERRLVL_ERROR, set->codes[i] == dataset_code ? 117 : 118,
                   "Missing parameter for vtmethod (%s) in objedit entry",
                   component_token(layout, entry, layout->method_slot));
            return;
        }
    }
}

char *copy_text(char **space, const char *text)
{
    char *copy = *space;
    size_t size = strlen(text) + 1;
    memcpy(copy, text, size);
    *space += size;
    return copy;
}

// The draft as one heap block: the record, its parameters, then its texts.
gx_defrec *copy_record(const draft *d)
{
    static_assert(sizeof(gx_defrec) % alignof(gx_defparm) == 0, "parameters follow the record");
    size_t parms_size = static_cast<size_t>(d->rec.parm_count) * sizeof(gx_defparm);
    size_t text_size = strlen(d->rec.name) + 1;
    for (int i = 0; i < d->rec.parm_count; i++)
        if (d->parms[i].text != nullptr)
            text_size += strlen(d->parms[i].text) + 1;

    char *block = static_cast<char *>(gx_allocate_rtn(sizeof(gx_defrec) + parms_size + text_size));
    if (block == nullptr)
        return nullptr;
    gx_defrec *rec = reinterpret_cast<gx_defrec *>(block);
    gx_defparm *parms = reinterpret_cast<gx_defparm *>(block + sizeof(gx_defrec));
    char *space = block + sizeof(gx_defrec) + parms_size;

    *rec = d->rec;
    rec->name = copy_text(&space, d->rec.name);
    rec->parms = d->rec.parm_count > 0 ? parms : nullptr;
    for (int i = 0; i < d->rec.parm_count; i++) {
        parms[i] = d->parms[i];
        if (d->parms[i].text != nullptr)
            parms[i].text = copy_text(&space, d->parms[i].text);
    }
    return rec;
}

} // namespace

gx_defrec *gx_objedit_record_new(const gx_objedit_layout *layout, const gx_deftokens *entry,
                                 const char *context, gx_err_rec *err)
{
    gx_err_rec local;
    checker c = {err != nullptr ? err : &local, err != nullptr, false, context};
    gx_err_clear(c.rec);

    draft d{};
    d.rec.code = static_cast<int>(strtol(token(entry, 1), nullptr, 10));
    d.rec.name = token(entry, 2);
    d.rec.parms = d.parms;
    method_parms set{};
    read_fields(&c, layout, entry, &d, &set);
    if (layout->items != GX_OBJEDIT_NO_ITEMS && going_on(&c)) {
        read_items(&c, layout, entry, &d, &set);
        if (going_on(&c))
            check_parameters(&c, layout, entry, &d, &set);
    }
    if (c.failed)
        return nullptr;

    gx_defrec *rec = copy_record(&d);
    if (rec == nullptr)
        gx_err_str(c.rec, GX_ERRLVL_ERROR, GX_ERRCAT_MEMORY, 1, context, "No memory");
    return rec;
}
