// Error records and the process-wide message routine.
//
// Every failing constructor or parser fills an error record and offers it to the message routine,
// which an application installs to see errors as they happen.  Two masks filter what reaches the
// routine: the record's level must share a bit with the level mask and its category a bit with
// the category mask.
#include "object/gx_core.h"

#include <cstdarg>
#include <cstring>

namespace {

// The message routine and its masks: process-wide, unguarded, installed before concurrent use.
gx_msg_rtn msg_routine = nullptr;
void *msg_usrdata = nullptr;
int msg_lvlmask = 0;
int msg_catmask = 0;

void err_send(const gx_err_rec *err)
{
    if (msg_routine != nullptr && (err->level & static_cast<unsigned int>(msg_lvlmask)) != 0 &&
        (err->category & static_cast<unsigned int>(msg_catmask)) != 0)
        msg_routine(msg_usrdata, err);
}

} // namespace

void gx_err_clear(gx_err_rec *err)
{
    if (err == nullptr)
        return;
    err->level = 0;
    err->category = 0;
    err->number = 0;
    err->function[0] = '\0';
    err->message[0] = '\0';
}

void gx_err_str(gx_err_rec *err, unsigned int level, unsigned int category, unsigned int number,
                const char *function, const char *message)
{
    err->level = level;
    err->category = category;
    err->number = number;
    gx_strncpy(err->function, function, GX_ERR_FUNCTION_LEN);
    gx_strncpy(err->message, message, GX_ERR_MESSAGE_LEN);
    err_send(err);
}

void gx_err_var(gx_err_rec *err, unsigned int level, unsigned int category, unsigned int number,
                const char *function, const char *format, va_list args)
{
    char message[GX_ERR_MESSAGE_LEN];
    gx_vsnprintf(message, GX_ERR_MESSAGE_LEN, format, args);
    gx_err_str(err, level, category, number, function, message);
}

void gx_err_fmt(gx_err_rec *err, unsigned int level, unsigned int category, unsigned int number,
                const char *function, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(err, level, category, number, function, format, args);
    va_end(args);
}

void gx_msg_setrtn(void *usrdata, int lvlmask, int catmask, gx_msg_rtn rtn)
{
    msg_routine = rtn;
    msg_usrdata = rtn != nullptr ? usrdata : nullptr;
    // -1 keeps a mask as it is; removing the routine clears any mask that is not kept.
    if (lvlmask != -1)
        msg_lvlmask = rtn != nullptr ? lvlmask : 0;
    if (catmask != -1)
        msg_catmask = rtn != nullptr ? catmask : 0;
}

void gx_msg_getrtn(void **usrdata, int *lvlmask, int *catmask, gx_msg_rtn *rtn)
{
    if (usrdata != nullptr)
        *usrdata = msg_usrdata;
    if (lvlmask != nullptr)
        *lvlmask = msg_lvlmask;
    if (catmask != nullptr)
        *catmask = msg_catmask;
    if (rtn != nullptr)
        *rtn = msg_routine;
}

namespace gx {

err_scope::err_scope(gx_err_rec *caller)
    : rec_(caller != nullptr ? caller : &local_), caller_(caller != nullptr)
{
    gx_err_clear(rec_);
}

void report(gx_err_rec *rec, unsigned int level, unsigned int category, unsigned int number,
            const char *function, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    gx_err_var(rec, level, category, number, function, format, args);
    va_end(args);
}

} // namespace gx
