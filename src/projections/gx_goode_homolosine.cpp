// gx_goode_homolosine.cpp -- Goode's homolosine projection, uninterrupted or interrupted.
//
// Parameters: central meridian lambda0 (slot 2) and the layout Option (slot 15).  Goode 1925
// ("The homolosine projection: a new device for portraying the Earth's surface entire", Annals
// of the Association of American Geographers 15), with the lobes of Steinwand 1994 ("Mapping
// raster imagery to the Interrupted Goode Homolosine projection", International Journal of
// Remote Sensing 15): the sinusoidal projection (x = lambda cos phi, y = phi) between the
// parallels of +-40 deg 44' 11.8", where its scale along the parallels equals Mollweide's, and
// Mollweide's projection (gx_mollweide.h) poleward of them, shifted towards the equator by
// y_Mollweide - y_sinusoidal at those parallels so that the two join.  Both are equal-area, and
// so is the homolosine.
//
// Interrupted, each hemisphere is cut into lobes, each drawn about its own central meridian
// lambda_c at x = lambda_c (all longitudes relative to lambda0):
//   Option 0  uninterrupted: one lobe, -180 to 180 about 0
//   Option 1  interrupted for the continents (Goode's own, "land"):
//             north  -180..-40 about -100,  -40..180 about 30
//             south  -180..-100 about -160, -100..-20 about -60, -20..80 about 20,
//                    80..180 about 140
//   Option 2  interrupted for the oceans:
//             north  -180..-90 about -140,  -90..60 about -10,  60..180 about 130
//             south  -180..-60 about -110,  -60..90 about 20,   90..180 about 150
// Any other Option converts nothing.  The equator belongs to the northern lobes.  The inverse
// finds the latitude from y, then the lobe whose span of x at that latitude holds the point; a
// point in no lobe (the gaps between lobes, beyond the poles) fails.  Sphere of radius a on any
// datum.  The lobes are kept in a table, so that the outline of a layout can be read from it.
//
// Constants record:  1: [0] radius
#include "projections/gx_mollweide.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kDegree = 0.017453292519943295;
constexpr double kJoinLatitude = 0.7109879899933945;    // 40 deg 44' 11.8"
constexpr double kMollweideShift = 0.05280352736841276; // y_Mollweide - y_sinusoidal there

// One lobe: the longitudes it spans and its central meridian, in degrees from lambda0.
struct Lobe {
    double west, east, center;
};

struct Layout {
    const Lobe *north;
    int north_count;
    const Lobe *south;
    int south_count;
};

constexpr Lobe kWhole[] = {{-180, 180, 0}};
constexpr Lobe kLandNorth[] = {{-180, -40, -100}, {-40, 180, 30}};
constexpr Lobe kLandSouth[] = {{-180, -100, -160}, {-100, -20, -60}, {-20, 80, 20}, {80, 180, 140}};
constexpr Lobe kOceanNorth[] = {{-180, -90, -140}, {-90, 60, -10}, {60, 180, 130}};
constexpr Lobe kOceanSouth[] = {{-180, -60, -110}, {-60, 90, 20}, {90, 180, 150}};

constexpr Layout kLayouts[] = {
    {kWhole, 1, kWhole, 1},
    {kLandNorth, 2, kLandSouth, 4},
    {kOceanNorth, 3, kOceanSouth, 3},
};
constexpr int kLastOption = 2;

// The homolosine of the unit sphere about one meridian.
bool homolosine_forward(double lam, double phi, double *x, double *y)
{
    if (std::fabs(phi) <= kJoinLatitude) {
        *x = lam * std::cos(phi);
        *y = phi;
        return true;
    }
    if (!MollweideFormulas::forward(lam, phi, x, y))
        return false;
    *y -= std::copysign(kMollweideShift, phi);
    return true;
}

// The inverse of homolosine_forward; false beyond the bounding meridians or the poles.
bool homolosine_inverse(double x, double y, double *lam, double *phi)
{
    if (std::fabs(y) <= kJoinLatitude) {
        double l = x / std::cos(y);
        if (!within_outline(&l, kPi))
            return false;
        *lam = l;
        *phi = y;
        return true;
    }
    return MollweideFormulas::inverse(x, y + std::copysign(kMollweideShift, y), lam, phi);
}

class GoodeFormulas {
public:
    explicit GoodeFormulas(const double parms[16]) : option_(layout_option(parms, kLastOption)) {}

    bool valid() const { return option_ >= 0; }

    bool forward(double lam, double phi, double *x, double *y) const
    {
        const Lobe &lobe = lobe_of(lam, phi >= 0.0);
        const double center = lobe.center * kDegree;
        if (!homolosine_forward(lam - center, phi, x, y))
            return false;
        *x += center;
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        const Layout &layout = kLayouts[option_];
        const bool north = y >= 0.0;
        const Lobe *lobes = north ? layout.north : layout.south;
        const int count = north ? layout.north_count : layout.south_count;
        for (int i = 0; i < count; ++i) {
            const double center = lobes[i].center * kDegree;
            double l = 0.0, p = 0.0;
            if (!homolosine_inverse(x - center, y, &l, &p))
                continue;
            l += center;
            const double west = lobes[i].west * kDegree, east = lobes[i].east * kDegree;
            if (l >= west - kOutlineTol * (1.0 + std::fabs(west)) &&
                l <= east + kOutlineTol * (1.0 + std::fabs(east))) {
                *lam = std::fmax(-kPi, std::fmin(kPi, l));
                *phi = p;
                return true;
            }
        }
        return false;
    }

private:
    // the lobe of a longitude in the given hemisphere (the last one takes +180)
    const Lobe &lobe_of(double lam, bool north) const
    {
        const Layout &layout = kLayouts[option_];
        const Lobe *lobes = north ? layout.north : layout.south;
        const int count = north ? layout.north_count : layout.south_count;
        for (int i = 0; i < count - 1; ++i)
            if (lam < lobes[i].east * kDegree)
                return lobes[i];
        return lobes[count - 1];
    }

    int option_;
};

using GoodeHomolosine = WorldProjection<GoodeFormulas>;

} // namespace

GX_DEFINE_PROJECTION_ROUTINES(goode_homolosine, GoodeHomolosine)
