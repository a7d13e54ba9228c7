// The object core: allocation, type and status names, the generic gx_object_* operations and
// the per-type family that every object type instantiates from its descriptor.
#include "object/gx_core.h"
#include "object/gx_types.h"

#include <charconv>
#include <cmath>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

// ---- allocation ---------------------------------------------------------------------------------

void *gx_allocate_rtn(size_t size) { return size == 0 ? nullptr : std::malloc(size); }
void gx_deallocate_rtn(void *p) { std::free(p); }
void *gx_memalloc(size_t size) { return gx_allocate_rtn(size); }

// ---- type and status names ----------------------------------------------------------------------

namespace {

struct type_name_row {
    unsigned int type;
    const char *name;
};

const type_name_row type_names[] = {
    {0x1, "geogcs"},       {0x2, "projcs"},        {0x4, "geoxyzcs"},    {0x8, "vertcs"},
    {0x10, "hvcoordsys"},  {0x20, "datum"},        {0x40, "vdatum"},     {0x80, "geogtran"},
    {0x100, "linunit"},    {0x200, "angunit"},     {0x300, "unit"},      {0x400, "primem"},
    {0x800, "spheroid"},   {0x1000, "method"},     {0x2000, "htmethod"}, {0x4000, "projection"},
    {0x8000, "parameter"}, {0x10000, "authority"}, {0x20000, "adjhcs"},  {0x40000, "array"},
    {0x80000, "verttran"}, {0x100000, "vtmethod"}, {0, nullptr},
};

} // namespace

const char *gx_type_to_name(unsigned int type)
{
    for (const type_name_row *row = type_names; row->type != 0; ++row)
        if (row->type == type)
            return row->name;
    return nullptr;
}

unsigned int gx_name_to_type(const char *name)
{
    if (name == nullptr || name[0] == '\0')
        return 0;
    for (const type_name_row *row = type_names; row->type != 0; ++row)
        if (gx_strcmp_i(name, row->name) == 0)
            return row->type;
    return 0;
}

const char *gx_status_to_string(unsigned int status)
{
    switch (status) {
    case 0:
        return "";
    case GX_STATUS_NEW:
        return "new";
    case GX_STATUS_STRING:
        return "string";
    case GX_STATUS_CODE:
        return "code";
    case GX_STATUS_USER:
        return "user";
    case GX_STATUS_CODECHANGE:
        return "codechange";
    case GX_STATUS_DISCONTINUED:
        return "discontinued";
    case GX_STATUS_DEAD:
        return "dead";
    default:
        return "unknown";
    }
}

// ---- generic operations -------------------------------------------------------------------------

int gx_object_p(const void *obj) { return gx::is_object(obj) ? 1 : 0; }

unsigned int gx_object_type(const void *obj)
{
    return gx::is_object(obj) ? gx::header_of(obj)->type : 0u;
}

unsigned int gx_object_status(const void *obj)
{
    return gx::is_object(obj) ? gx::header_of(obj)->status & 0xFFu : 0u;
}

int gx_object_code(const void *obj) { return gx::is_object(obj) ? gx::header_of(obj)->code : -1; }

char *gx_object_name(const void *obj, char *buf)
{
    return gx::is_object(obj) ? gx::object_name(obj, buf) : gx::object_name(nullptr, buf);
}

void gx_object_status_set(void *obj, unsigned int status)
{
    if (gx::is_object(obj))
        gx::header_of(obj)->status = status;
}

void gx_object_code_set(void *obj, int code, const char *authname, const char *version)
{
    if (gx::is_object(obj))
        gx::object_code_set(obj, code, authname, version);
}

namespace {

// The vector row of a live object's type; the table has a row for every type the library makes.
const gx_object_vec *vector_of(const void *obj)
{
    return gx::is_object(obj) ? gx_object_vector(gx::header_of(obj)->type) : nullptr;
}

} // namespace

void *gx_object_clone(const void *obj)
{
    const gx_object_vec *vec = vector_of(obj);
    return vec != nullptr && vec->clone != nullptr ? vec->clone(obj) : nullptr;
}

void gx_object_del(void *obj)
{
    const gx_object_vec *vec = vector_of(obj);
    if (vec != nullptr && vec->del != nullptr)
        vec->del(obj);
}

int gx_object_eq(const void *a, const void *b)
{
    if (!gx::is_object(a) || !gx::is_object(b) || gx::header_of(a)->type != gx::header_of(b)->type)
        return 0;
    const gx_object_vec *vec = vector_of(a);
    return vec != nullptr && vec->eq != nullptr ? vec->eq(a, b) : 0;
}

char *gx_object_to_string(const void *obj, char *buf)
{
    return gx_object_to_string_ext(obj, 0, buf);
}

char *gx_object_to_string_ext(const void *obj, int options, char *buf)
{
    if (buf == nullptr)
        return nullptr;
    buf[0] = '\0';
    const gx_object_vec *vec = vector_of(obj);
    if (vec != nullptr && vec->to_string_ext != nullptr)
        vec->to_string_ext(obj, options, buf);
    return buf;
}

gx_authority *gx_object_authority(void *obj)
{
    const gx_object_vec *vec = vector_of(obj);
    return vec != nullptr && vec->authority != nullptr ? vec->authority(obj) : nullptr;
}

void gx_object_authority_set(void *obj, gx_authority *auth)
{
    const gx_object_vec *vec = vector_of(obj);
    if (vec != nullptr && vec->authority_set != nullptr)
        vec->authority_set(obj, auth);
}

// ---- the per-type family ------------------------------------------------------------------------

namespace gx {

gx_object_header *new_record(const type_desc &desc, const char *name, const char *function,
                             gx_err_rec *err)
{
    auto *obj = static_cast<gx_object_header *>(gx_allocate_rtn(desc.size));
    if (obj == nullptr) {
        report_no_memory(err, function);
        return nullptr;
    }
    std::memset(obj, 0, desc.size);
    obj->signature = GX_OBJECT_SIGNATURE;
    obj->type = desc.type;
    obj->status = GX_STATUS_NEW;
    obj->code = -1;
    gx_strncpy(obj->name, name != nullptr ? name : "", GX_NAME_LEN);
    return obj;
}

void delete_record(const type_desc &desc, void *obj)
{
    gx_object_header *header = header_of(obj);
    header->signature = 0; // a stale pointer fails every validity test from now on
    if (desc.free_parts != nullptr)
        desc.free_parts(header);
    if (desc.has_authority)
        gx_authority_del(as<gx_coded_object>(obj)->auth);
    gx_deallocate_rtn(obj);
}

void object_del(const type_desc &desc, void *obj)
{
    if (is_type(obj, desc.type))
        delete_record(desc, obj);
}

void *object_clone(const type_desc &desc, const void *obj)
{
    if (!is_type(obj, desc.type))
        return nullptr;
    const gx_object_header *source = header_of(obj);
    gx_authority *auth = nullptr;
    if (desc.has_authority && as<gx_coded_object>(obj)->auth != nullptr) {
        auth = gx_authority_clone(as<gx_coded_object>(obj)->auth);
        if (auth == nullptr)
            return nullptr;
    }
    gx_object_header *copy = desc.clone(source);
    if (copy == nullptr) {
        gx_authority_del(auth);
        return nullptr;
    }
    copy->status = source->status;
    copy->code = source->code;
    std::memcpy(copy->authname, source->authname, sizeof copy->authname);
    std::memcpy(copy->version, source->version, sizeof copy->version);
    if (desc.has_authority)
        as<gx_coded_object>(copy)->auth = auth;
    return copy;
}

int object_eq(const type_desc &desc, const void *a, const void *b)
{
    if (!is_type(a, desc.type) || !is_type(b, desc.type))
        return 0;
    return desc.equal(header_of(a), header_of(b)) ? 1 : 0;
}

char *object_name(const void *obj, char *buf)
{
    if (buf == nullptr)
        return nullptr;
    buf[0] = '\0';
    if (obj != nullptr)
        gx_strcpy(buf, header_of(obj)->name);
    return buf;
}

gx_authority *object_authority(const type_desc &desc, void *obj)
{
    if (!desc.has_authority || !is_type(obj, desc.type))
        return nullptr;
    auto *coded = as<gx_coded_object>(obj);
    // Built on first request from the header's code, authority name and version.
    if (coded->auth == nullptr && coded->header.code >= 1)
        coded->auth =
            gx_authority_new(coded->header.authname, coded->header.code, coded->header.version);
    return coded->auth;
}

void object_authority_set(const type_desc &desc, void *obj, gx_authority *auth)
{
    if (!desc.has_authority || !is_type(obj, desc.type))
        return;
    auto *coded = as<gx_coded_object>(obj);
    gx_authority_del(coded->auth);
    coded->auth = auth;
}

void object_code_set(void *obj, int code, const char *authname, const char *version)
{
    gx_object_header *header = header_of(obj);
    header->code = code;
    gx_strncpy(header->authname, authname != nullptr ? authname : "", GX_AUTHNAME_LEN);
    gx_strncpy(header->version, version != nullptr ? version : "", GX_VERSION_LEN);
}

function_name::function_name(const type_desc &desc, const char *operation)
{
    gx_snprintf(text, sizeof text, "gx_%s_%s", desc.name, operation);
}

// ---- text output --------------------------------------------------------------------------------

namespace {

// Whether the only conversions of a format are %s and %d, the ones every WKT writer uses.
bool has_plain_conversions(const char *format)
{
    for (const char *c = std::strchr(format, '%'); c != nullptr; c = std::strchr(c + 2, '%'))
        if (c[1] != 's' && c[1] != 'd')
            return false;
    return true;
}

// Writes into a buffer of `size` bytes as gx_vsnprintf does: at most size - 2 characters, a
// terminator after them and one in the last byte.
class bounded_writer {
public:
    bounded_writer(char *buf, int size) : buf_(buf), size_(size), room_(size > 2 ? size - 2 : 0) {}

    void put(const char *piece, std::size_t piece_length)
    {
        const std::size_t fits = static_cast<std::size_t>(room_ - written_);
        const std::size_t n = piece_length < fits ? piece_length : fits;
        std::memcpy(buf_ + written_, piece, n);
        written_ += static_cast<int>(n);
    }

    void finish()
    {
        buf_[written_] = '\0';
        buf_[size_ - 1] = '\0';
    }

private:
    char *buf_;
    int size_;
    int room_;
    int written_ = 0;
};

// gx_vsnprintf for a format with plain conversions only: the same text without the C library's
// stream machinery, which costs more than the copying itself.
void format_plain(char *buf, int size, const char *format, va_list args)
{
    if (size < 1)
        return;
    bounded_writer out(buf, size);
    const char *c = format;
    for (const char *percent; (percent = std::strchr(c, '%')) != nullptr; c = percent + 2) {
        out.put(c, static_cast<std::size_t>(percent - c));
        if (percent[1] == 's') {
            const char *piece = va_arg(args, const char *);
            if (piece == nullptr)
                piece = "(null)"; // as the C library writes it
            out.put(piece, std::strlen(piece));
        } else {
            char digits[16];
            const char *end = std::to_chars(digits, digits + sizeof digits, va_arg(args, int)).ptr;
            out.put(digits, static_cast<std::size_t>(end - digits));
        }
    }
    out.put(c, std::strlen(c));
    out.finish();
}

} // namespace

void text_buf::printf(const char *format, ...)
{
    va_list args;
    va_start(args, format);
    if (has_plain_conversions(format))
        format_plain(text + length, GX_TEXT_LEN - length, format, args);
    else
        gx_vsnprintf(text + length, GX_TEXT_LEN - length, format, args);
    va_end(args);
    length += static_cast<int>(std::strlen(text + length));
}

bool text_buf::append_if_below(const char *piece, int limit)
{
    const int piece_length = static_cast<int>(std::strlen(piece));
    if (length + piece_length >= limit)
        return false;
    std::memcpy(text + length, piece, static_cast<std::size_t>(piece_length) + 1);
    length += piece_length;
    return true;
}

sub_text::sub_text(const void *obj, int options) { gx_object_to_string_ext(obj, options, text); }

char *object_to_string_ext(const type_desc &desc, const void *obj, int options, char *buf)
{
    if (buf == nullptr)
        return nullptr;
    buf[0] = '\0';
    if (!is_type(obj, desc.type))
        return buf;

    // Option 1 writes this object's authority only; option 2 every object's; others none.
    const bool own_authority = options == 1 || options == 2;
    const int sub_options = options == 1 ? 0 : options;

    text_buf out(buf);
    desc.write(header_of(obj), sub_options, out);
    if (desc.close == wkt_close::none)
        return buf;
    if (desc.close == wkt_close::authority_and_bracket && own_authority) {
        gx_authority *auth = object_authority(desc, const_cast<void *>(obj));
        if (auth != nullptr) {
            char auth_text[GX_TEXT_LEN];
            gx_authority_to_string_ext(auth, 0, auth_text);
            if (out.length + static_cast<int>(std::strlen(auth_text)) < 1021) {
                out.printf(",%s", auth_text);
            }
        }
    }
    out.append_if_below("]", GX_TEXT_LEN);
    return buf;
}

} // namespace gx
