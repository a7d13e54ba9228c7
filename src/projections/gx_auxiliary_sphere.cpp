// gx_auxiliary_sphere.cpp -- the auxiliary-sphere mechanism: choosing the sphere, moving the
// parameters and points onto it, and calling the base projection's routines there.
#include "projections/gx_auxiliary_sphere.h"
#include "projections/gx_projection_support.h"

#include <cmath>

namespace gx::projections {

namespace {

constexpr int kMaxBaseConstants = 8;
constexpr int kLatitudeSlots[] = {slot::standard_parallel_1, slot::standard_parallel_2,
                                  slot::latitude_of_origin, slot::latitude_of_center};

// The sphere one call works on, with the parameters moved onto it.
class AuxiliarySphere {
public:
    AuxiliarySphere(const double sphere[2], const double parms[16]) : e2_(sphere[1])
    {
        const double a = sphere[0];
        const int type = is_sphere(e2_) ? 0 : auxiliary_sphere_type(parms);
        sphere_[0] = type == 0 ? a : type == 1 ? a * std::sqrt(1.0 - e2_) : gx_auth_r(a, e2_);
        sphere_[1] = 0.0;
        authalic_latitude_ = type == 3;
        for (int i = 0; i < gx::parameter_slots; ++i)
            parms_[i] = parms[i];
    }

    bool authalic_latitude() const { return authalic_latitude_; }

    // Takes the authalic-latitude block: the given one, or one computed here when null.  Only
    // for type 3, before any latitude is converted.
    void use_block(const double *given)
    {
        if (given == nullptr) {
            gx_beta_authalic_constants(e2_, local_block_, 0);
            given = local_block_;
        }
        block_ = given;
        for (const int slot : kLatitudeSlots)
            parms_[slot] = to_sphere(parms_[slot]);
    }
    const double *block() const { return block_; }

    double to_sphere(double phi) const
    {
        return block_ != nullptr ? gx_phi_to_beta_wconst(e2_, phi, block_) : phi;
    }
    double from_sphere(double beta) const
    {
        return block_ != nullptr ? gx_beta_to_phi_wconst(e2_, beta, block_) : beta;
    }

    const double *sphere() const { return sphere_; }
    const double *parms() const { return parms_; }

private:
    double e2_;
    double sphere_[2];
    double parms_[gx::parameter_slots];
    bool authalic_latitude_ = false;
    double local_block_[GX_BETA_BLOCK_LEN] = {};
    const double *block_ = nullptr;
};

// The constants handed to a call, if they fit this sphere; the authalic block taken from them
// or computed.
const double *take_constants(const AuxiliarySphereBase &base, AuxiliarySphere &aux,
                             const int *ivals, const double *dvals)
{
    const int expected = base.sphere_count + (aux.authalic_latitude() ? GX_BETA_BLOCK_LEN : 0);
    const double *given = given_constants(ivals, dvals, expected);
    if (aux.authalic_latitude())
        aux.use_block(given ? given + base.sphere_count : nullptr);
    return given;
}

} // namespace

int auxiliary_sphere_type(const double parms[16])
{
    const double value = std::round(parms[slot::auxiliary_sphere_type] + 0.001);
    return value >= 1.0 && value <= 3.0 ? static_cast<int>(value) : 0;
}

int auxiliary_sphere_constants(const AuxiliarySphereBase &base, gx_constants *constants,
                               const double sphere[2], const double parms[16])
{
    AuxiliarySphere aux(sphere, parms);
    if (aux.authalic_latitude())
        aux.use_block(nullptr);
    double values[kMaxBaseConstants + GX_BETA_BLOCK_LEN];
    int count = base.constants ? base.constants(aux.sphere(), aux.parms(), values) : 0;
    if (count != base.sphere_count)
        return 0;
    if (aux.authalic_latitude()) {
        for (int i = 0; i < GX_BETA_BLOCK_LEN; ++i)
            values[count + i] = aux.block()[i];
        count += GX_BETA_BLOCK_LEN;
    }
    return store_constants(constants, values, count);
}

int auxiliary_sphere_forward(const AuxiliarySphereBase &base, const double sphere[2],
                             const double parms[16], int n, double *coords, const int *ivals,
                             const double *dvals)
{
    AuxiliarySphere aux(sphere, parms);
    const double *given = take_constants(base, aux, ivals, dvals);
    if (aux.authalic_latitude())
        for (int i = 0; i < n; ++i)
            coords[2 * i + 1] = aux.to_sphere(coords[2 * i + 1]);
    const int base_ivals[2] = {2, base.sphere_count};
    return base.forward(aux.sphere(), aux.parms(), n, coords, given ? base_ivals : nullptr, given);
}

int auxiliary_sphere_inverse(const AuxiliarySphereBase &base, const double sphere[2],
                             const double parms[16], int n, double *coords, const int *ivals,
                             const double *dvals)
{
    AuxiliarySphere aux(sphere, parms);
    const double *given = take_constants(base, aux, ivals, dvals);
    const int base_ivals[2] = {2, base.sphere_count};
    const int converted =
        base.inverse(aux.sphere(), aux.parms(), n, coords, given ? base_ivals : nullptr, given);
    if (aux.authalic_latitude() && converted > 0)
        for (int i = 0; i < n; ++i)
            if (!failed(&coords[2 * i]))
                coords[2 * i + 1] = aux.from_sphere(coords[2 * i + 1]);
    return converted;
}

} // namespace gx::projections
