// gx_cube.cpp -- the cube projection: the quadrilateralized spherical cube, unfolded.
//
// Parameters: central meridian lambda0 (slot 2) and the layout Option (slot 15).
//
// The sphere is divided among the six faces of a circumscribed cube (the face whose axis is
// nearest a point takes it), and each face is mapped onto its square by the equal-area
// quadrilateralized spherical cube of Chan & O'Neill 1975 ("Feasibility study of a
// quadrilateralized spherical cube Earth data base", EPRF technical report 2-75), in the exact
// closed form of O'Neill & Laubscher 1976 as given by Calabretta & Greisen 2002
// ("Representations of celestial coordinates in FITS", A&A 395, eqs. for QSC, the COBE sky cube
// of the same design).  With the point's direction cosines (xi, eta, zeta) on a face (zeta
// along its axis) and |xi| >= |eta|, omega = |eta / xi|:
//   u = sign(xi) sqrt((1 - zeta) / (1 - 1 / sqrt(2 + omega^2))),
//   v = (12 / pi) u (atan(omega) - asin(omega / sqrt(2 (1 + omega^2)))) sign(eta),
// and with xi and eta (u and v) exchanged otherwise; back, with w = pi v / (12 u),
//   omega = sin w / (cos w - 1 / sqrt 2),  zeta = 1 - u^2 (1 - 1 / sqrt(2 + omega^2)).
// Every face is the square [-R, R]^2 of the tangent cube (u, v in [-1, 1] times R), so the map
// is equal-area with areas magnified uniformly by 6 / pi.  R is a on any datum, with the
// geodetic latitude.
//
// The faces: front (F) about (lambda0, 0), right (R) about lambda0 + 90, back (B) about
// lambda0 + 180, left (L) about lambda0 - 90, top (T) about the north pole, bottom (D) about the
// south pole.  On the four equatorial faces u runs east and v north; the top and bottom faces
// are turned so that they join the front face.  The layouts (face centres in units of 2R from
// the centre of the front face, which is the map's origin):
//   Option 0  the cross:          L(-1, 0) F(0, 0) R(1, 0) B(2, 0), T(0, 1), D(0, -1)
//   Option 1  the world strip:    as 0, with the back face cut along the antimeridian of
//                                 lambda0: its western half at (2, 0), right of R, its eastern
//                                 half at (-2, 0), left of L, so that the map spans -180 to 180
//                                 degrees about lambda0
// Any other Option converts nothing.  The inverse fails a point in no face of the layout.  The
// face table below is what a map's outline is read from.
#include "projections/gx_polyhedral.h"

#include <cmath>

namespace {

using namespace gx::projections;

constexpr double kInvSqrt2 = 0.7071067811865476;
constexpr double kTwelveByPi = 3.819718634205488; // 12 / pi

// A face: its axis and the directions of u and v, in the frame turned by lambda0 (x towards
// (lambda0, 0), y towards (lambda0 + 90, 0), z north), and its centre on the net.
struct Face {
    Vec3 axis, u_dir, v_dir;
    int column, row;
};

enum FaceId { kFront, kRight, kBack, kLeft, kTop, kBottom, kFaceCount };

constexpr Face kFaces[kFaceCount] = {
    {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, 0, 0},   // front
    {{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, 1, 0},  // right
    {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}, 2, 0}, // back
    {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}, -1, 0}, // left
    {{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}, 0, 1},  // top
    {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}, 0, -1}, // bottom
};
constexpr int kLastOption = 1;

// The face of a direction: the largest direction cosine.
FaceId face_of(Vec3 p)
{
    const double ax = std::fabs(p.x), ay = std::fabs(p.y), az = std::fabs(p.z);
    if (az >= ax && az >= ay)
        return p.z >= 0.0 ? kTop : kBottom;
    if (ax >= ay)
        return p.x >= 0.0 ? kFront : kBack;
    return p.y >= 0.0 ? kRight : kLeft;
}

// Face coordinates (u, v) of the direction cosines (xi along u, eta along v, zeta on the axis).
void qsc_forward(double xi, double eta, double zeta, double *u, double *v)
{
    const bool u_major = std::fabs(xi) >= std::fabs(eta);
    const double major = u_major ? xi : eta, minor = u_major ? eta : xi;
    const double omega = major == 0.0 ? 0.0 : std::fabs(minor / major);
    const double s =
        std::sqrt(std::fmax(0.0, (1.0 - zeta) / (1.0 - 1.0 / std::sqrt(2.0 + omega * omega))));
    const double a = std::copysign(s, major);
    const double b = std::copysign(
        kTwelveByPi * s *
            (std::atan(omega) - std::asin(omega / std::sqrt(2.0 * (1.0 + omega * omega)))),
        minor);
    *u = u_major ? a : b;
    *v = u_major ? b : a;
}

// The direction cosines of the face coordinates (u, v).
void qsc_inverse(double u, double v, double *xi, double *eta, double *zeta)
{
    const bool u_major = std::fabs(u) >= std::fabs(v);
    const double major = u_major ? u : v, minor = u_major ? v : u;
    if (major == 0.0) {
        *xi = 0.0;
        *eta = 0.0;
        *zeta = 1.0;
        return;
    }
    const double w = minor / major / kTwelveByPi;
    const double omega = std::fabs(std::sin(w) / (std::cos(w) - kInvSqrt2));
    const double one_minus_zeta = major * major * (1.0 - 1.0 / std::sqrt(2.0 + omega * omega));
    const double z = 1.0 - one_minus_zeta;
    // 1 - zeta^2 without cancellation near the face centre
    const double across = std::sqrt(std::fmax(0.0, one_minus_zeta * (1.0 + z)));
    const double a = std::copysign(across / std::sqrt(1.0 + omega * omega), major);
    const double b = std::copysign(omega * std::fabs(a), minor);
    *xi = u_major ? a : b;
    *eta = u_major ? b : a;
    *zeta = z;
}

class CubeFormulas {
public:
    explicit CubeFormulas(const double parms[16]) : option_(layout_option(parms, kLastOption)) {}

    bool valid() const { return option_ >= 0; }

    bool forward(double lam, double phi, double *x, double *y) const
    {
        const Vec3 p = to_vector(lam, phi);
        const FaceId id = face_of(p);
        const Face &f = kFaces[id];
        double u = 0.0, v = 0.0;
        qsc_forward(dot(p, f.u_dir), dot(p, f.v_dir), dot(p, f.axis), &u, &v);
        int column = f.column;
        if (id == kBack && option_ == 1 && lam < 0.0)
            column = -2; // the eastern half of the back face, left of the left face
        *x = 2.0 * column + u;
        *y = 2.0 * f.row + v;
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        // the cell of the net holding the point; on the line between two cells, the one with a
        // face
        for (const double dx : {-kOutlineTol, kOutlineTol})
            for (const double dy : {-kOutlineTol, kOutlineTol}) {
                const double column = std::round(0.5 * x + dx), row = std::round(0.5 * y + dy);
                const Face *face = face_in_cell(column, row, x - 2.0 * column);
                if (face != nullptr)
                    return face_inverse(*face, column, x - 2.0 * column, y - 2.0 * row, lam, phi);
            }
        return false;
    }

private:
    // The face in a cell of the net, if any; u decides which half of the back face a cell of the
    // world strip holds.
    const Face *face_in_cell(double column, double row, double u) const
    {
        if (option_ == 1 && row == 0.0 && (column == 2.0 || column == -2.0)) {
            if ((column == 2.0 && u > kOutlineTol) || (column == -2.0 && u < -kOutlineTol))
                return nullptr;
            return &kFaces[kBack];
        }
        for (const Face &f : kFaces)
            if (f.column == column && f.row == row)
                return &f;
        return nullptr;
    }

    bool face_inverse(const Face &face, double column, double u, double v, double *lam,
                      double *phi) const
    {
        if (!within_outline(&u, 1.0) || !within_outline(&v, 1.0))
            return false;
        double xi = 0.0, eta = 0.0, zeta = 0.0;
        qsc_inverse(u, v, &xi, &eta, &zeta);
        const Vec3 p = xi * face.u_dir + eta * face.v_dir + zeta * face.axis;
        to_angles(p, lam, phi);
        if (option_ == 1 && column == -2.0 && *lam > 0.0)
            *lam = -kPi; // the antimeridian, on the left edge
        return true;
    }

    int option_;
};

using Cube = PerCallWorldProjection<CubeFormulas>;

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(cube, Cube)
