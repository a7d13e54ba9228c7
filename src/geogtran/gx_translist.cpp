// The transformation list: a chain of steps run one after another on the same points -- a
// projected system (to or from its geographic system), a datum shift, a height transformation --
// so that, say, eastings in one datum's UTM zone become eastings in another's.
//
// The list refers to its steps' objects without owning them.  A list that was once asked to take
// something it cannot run is invalid for good: a chain with a hole in it must not half-convert
// anyone's points.
#include "gridex.h"

struct gx_translist {
    unsigned int tag; // GX_TRANSLIST_TAG
    gx_translist_entry *head;
    int valid; // 1 until the first refused addition
};

namespace {

bool is_list(const gx_translist *list) { return list != nullptr && list->tag == GX_TRANSLIST_TAG; }

bool is_step_type(unsigned int type)
{
    return type == GX_TYPE_PROJCS || type == GX_TYPE_GEOGTRAN || type == GX_TYPE_VERTTRAN;
}

void append_step(gx_translist *list, gx_translist_entry *step)
{
    gx_translist_entry **tail = &list->head;
    while (*tail != nullptr)
        tail = &(*tail)->next;
    *tail = step;
}

int run_step(const gx_translist_entry &step, int n, double *points, double *heights)
{
    double *step_heights = step.use_heights ? heights : nullptr;
    switch (gx_object_type(step.object)) {
    case GX_TYPE_PROJCS:
        return gx_proj_geog(static_cast<gx_projcs *>(step.object), n, points, step.direction);
    case GX_TYPE_GEOGTRAN:
        return gx_geog_to_geog(static_cast<gx_geogtran *>(step.object), n, points, step_heights,
                               step.direction);
    case GX_TYPE_VERTTRAN:
        return gx_vert_to_vert(static_cast<gx_verttran *>(step.object), n, points, step_heights,
                               step.direction);
    default:
        return 0; // an object deleted since it was added
    }
}

} // namespace

gx_translist *gx_translist_new(void)
{
    auto *list = static_cast<gx_translist *>(gx_allocate_rtn(sizeof(gx_translist)));
    if (list != nullptr)
        *list = {GX_TRANSLIST_TAG, nullptr, 1};
    return list;
}

void gx_translist_del(gx_translist *list)
{
    if (!is_list(list))
        return;
    for (gx_translist_entry *step = list->head; step != nullptr;) {
        gx_translist_entry *next = step->next;
        gx_deallocate_rtn(step);
        step = next;
    }
    list->tag = 0;
    gx_deallocate_rtn(list);
}

int gx_translist_p(const gx_translist *list) { return is_list(list) ? 1 : 0; }

gx_translist_entry *gx_translist_entrylist(const gx_translist *list)
{
    return is_list(list) ? list->head : nullptr;
}

int gx_translist_is_valid(const gx_translist *list) { return is_list(list) ? list->valid : 0; }

// Every chain of the three step types is accepted; whether consecutive steps agree on their
// systems is the caller's business.
int gx_translist_validate(const gx_translist *) { return 1; }

int gx_translist_add_transformation(gx_translist *list, void *object, int direction,
                                    int use_heights)
{
    if (!is_list(list) || list->valid == 0)
        return -1;
    if (!is_step_type(gx_object_type(object))) {
        list->valid = 0;
        return -1;
    }
    auto *step = static_cast<gx_translist_entry *>(gx_allocate_rtn(sizeof(gx_translist_entry)));
    if (step == nullptr) {
        list->valid = 0;
        return -1;
    }
    *step = {nullptr, object, direction, use_heights};
    append_step(list, step);
    return gx_translist_validate(list) ? 0 : -1;
}

int gx_translist_transform_coords(gx_translist *list, int n, double *points, double *heights)
{
    if (!is_list(list) || list->valid == 0 || list->head == nullptr)
        return 0;
    int converted = 0;
    for (const gx_translist_entry *step = list->head; step != nullptr; step = step->next) {
        converted = run_step(*step, n, points, heights);
        if (converted != n)
            break;
    }
    return converted;
}
