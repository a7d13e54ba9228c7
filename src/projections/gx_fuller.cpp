// gx_fuller.cpp -- Fuller's projection: the sphere on the faces of an icosahedron, each face
// mapped by Fuller's own transformation, and the faces unfolded into a net.
//
// Parameters: the layout Option (slot 15) only.
//
// The icosahedron is oriented as on Fuller's Dymaxion map (Fuller 1954, as published by the
// Buckminster Fuller Institute and by R. W. Gray 1995, "Exact transformation equations for
// Fuller's world map", Cartographica 32(3)): one vertex at 64.7 N 10.53620 E and a neighbour at
// 2.300882 N 5.245390 W; the other ten follow by the icosahedron's symmetry (the second vertex
// moved along the great circle from the first onto the exact edge length
// acos(1 / sqrt 5)).  The table below holds the twelve as unit vectors.
//
// Fuller's transformation of a face (as Gray put it in closed form): for each vertex X of a
// spherical face with opposite edge YZ, the great circle through the point P and the point
// E_X = (Y - Z) / |Y - Z| -- E_X lies 90 degrees from the face centre, so these great circles
// are the lines parallel to YZ of the face's gnomonic projection -- meets the side YX at a point
// Q; the arc YQ as a fraction f_X of the edge gives the line parallel to Y'Z' at the fraction
// f_X of the height in the plane triangle.  The three lines meet in a small triangle whose
// centre is the image: barycentric coordinates b_X = f_X + (1 - f_A - f_B - f_C) / 3.  Arc
// lengths along the edges are preserved, and adjacent faces agree along their common edge.
// The inverse solves the two equations by Newton's method on the face's gnomonic coordinates,
// from the gnomonic point of the same barycentric coordinates.
//
// Each edge is drawn as long as its arc on the sphere of radius a (a on any datum, with the
// geodetic latitude).  The layout:
//   Option 0  the icosahedron's regular net: the five faces about the vertex at 64.7 N on top,
//             the band of ten faces in a zig-zag strip, the five faces about the opposite vertex
//             below; a strip 5.5 edges wide and 3 heights tall, centred on the origin.
// Fuller's own Dymaxion arrangement of the faces, which cuts two of them to keep the continents
// whole, is not provided.  Any other Option converts nothing.  The face table below is what a
// map's outline is read from; the inverse fails a point in no face of the net.
#include "projections/gx_polyhedral.h"

#include <cmath>

namespace {

using namespace gx::projections;

// clang-format off
constexpr Vec3 kVertices[12] = {
    {0.42015242743242359, 0.078145256551553785, 0.90408254966077839},
    {0.99500943995322688, -0.091347789966440912, 0.040147175146116043},
    {0.51883672628077881, 0.83542038403420382, 0.18133183229203809},
    {-0.41468222789096826, 0.65596240680250961, 0.63067580477868501},
    {-0.51545595703891545, -0.38171689667962694, 0.76720099526940844},
    {0.35578140734632446, -0.84357999842221021, 0.40223423082658261},
    {-0.99500943995322688, 0.091347789966440912, -0.040147175146116043},
    {-0.51883672628077881, -0.83542038403420382, -0.18133183229203809},
    {0.41468222789096826, -0.65596240680250961, -0.63067580477868501},
    {0.51545595703891545, 0.38171689667962694, -0.76720099526940844},
    {-0.35578140734632446, 0.84357999842221021, -0.40223423082658261},
    {-0.42015242743242359, -0.078145256551553785, -0.90408254966077839},
};
// clang-format on

constexpr double kEdgeArc = 1.1071487177940904; // acos(1 / sqrt 5)
constexpr double kHeight = 0.8660254037844386;  // sqrt 3 / 2, a plane face's height per edge

// A face: its three vertices on the sphere and their places on the net, in edges.
struct NetPoint {
    double x, y;
};
struct Face {
    int vertex[3];
    NetPoint place[3];
};

// The regular net: upper ring vertex 1 + i at (i + 1/2, h), lower ring at (i, 0) in the order
// of kLowerRing, the vertex 0 above each cap face, the vertex 11 below each bottom face.
constexpr int kLowerRing[6] = {8, 9, 10, 6, 7, 8};

constexpr Face cap_face(int i)
{
    return {{0, 1 + i, 1 + (i + 1) % 5},
            {{i + 1.0, 2 * kHeight}, {i + 0.5, kHeight}, {i + 1.5, kHeight}}};
}
constexpr Face up_face(int i)
{
    return {{kLowerRing[i], kLowerRing[i + 1], 1 + i},
            {{i + 0.0, 0.0}, {i + 1.0, 0.0}, {i + 0.5, kHeight}}};
}
constexpr Face down_face(int i)
{
    return {{1 + i, 1 + (i + 1) % 5, kLowerRing[i + 1]},
            {{i + 0.5, kHeight}, {i + 1.5, kHeight}, {i + 1.0, 0.0}}};
}
constexpr Face bottom_face(int i)
{
    return {{kLowerRing[i], kLowerRing[i + 1], 11},
            {{i + 0.0, 0.0}, {i + 1.0, 0.0}, {i + 0.5, -kHeight}}};
}

constexpr Face kFaces[20] = {
    cap_face(0),    cap_face(1),    cap_face(2),    cap_face(3),    cap_face(4),
    up_face(0),     up_face(1),     up_face(2),     up_face(3),     up_face(4),
    down_face(0),   down_face(1),   down_face(2),   down_face(3),   down_face(4),
    bottom_face(0), bottom_face(1), bottom_face(2), bottom_face(3), bottom_face(4),
};
constexpr NetPoint kNetCentre = {2.75, 0.5 * kHeight};
constexpr int kLastOption = 0;

// Fuller's barycentric coordinates of the point p in the face.
void fuller_barycentric(const Face &face, Vec3 p, double b[3])
{
    double f[3];
    double sum = 0.0;
    for (int k = 0; k < 3; ++k) {
        const Vec3 vx = kVertices[face.vertex[k]];
        const Vec3 vy = kVertices[face.vertex[(k + 1) % 3]];
        const Vec3 vz = kVertices[face.vertex[(k + 2) % 3]];
        const Vec3 parallel = cross(p, vy - vz); // the great circle through p and E_X
        Vec3 q = cross(parallel, cross(vy, vx)); // ... meets the side YX at q
        if (dot(q, vx + vy) < 0.0)
            q = -1.0 * q;
        f[k] = arc_between(vy, unit(q)) / kEdgeArc;
        sum += f[k];
    }
    for (int k = 0; k < 3; ++k)
        b[k] = f[k] + (1.0 - sum) / 3.0;
}

NetPoint net_point(const Face &face, const double b[3])
{
    NetPoint n{0.0, 0.0};
    for (int k = 0; k < 3; ++k) {
        n.x += b[k] * face.place[k].x;
        n.y += b[k] * face.place[k].y;
    }
    return n;
}

// The plane barycentric coordinates of the net point n in the face.
void plane_barycentric(const Face &face, NetPoint n, double b[3])
{
    const NetPoint a = face.place[0], p1 = face.place[1], p2 = face.place[2];
    const double det = (p1.x - a.x) * (p2.y - a.y) - (p2.x - a.x) * (p1.y - a.y);
    b[1] = ((n.x - a.x) * (p2.y - a.y) - (p2.x - a.x) * (n.y - a.y)) / det;
    b[2] = ((p1.x - a.x) * (n.y - a.y) - (n.x - a.x) * (p1.y - a.y)) / det;
    b[0] = 1.0 - b[1] - b[2];
}

// The face whose centre is nearest the point: the face that holds it.
int face_of(Vec3 p)
{
    int best = 0;
    double best_dot = -2.0;
    for (int i = 0; i < 20; ++i) {
        const Face &f = kFaces[i];
        const Vec3 centre =
            kVertices[f.vertex[0]] + kVertices[f.vertex[1]] + kVertices[f.vertex[2]];
        const double d = dot(p, centre);
        if (d > best_dot) {
            best_dot = d;
            best = i;
        }
    }
    return best;
}

// The point of the face with the net point n (inside its plane triangle): Newton's method on the
// gnomonic coordinates (g1, g2) of the face, with a central-difference Jacobian.
bool fuller_inverse(const Face &face, NetPoint n, Vec3 *point)
{
    const Vec3 a = kVertices[face.vertex[0]], b = kVertices[face.vertex[1]],
               c = kVertices[face.vertex[2]];
    const Vec3 centre = unit(a + b + c);
    const Vec3 e1 = unit(b - c), e2 = cross(centre, e1);
    const auto at = [&](double g1, double g2) { return unit(centre + g1 * e1 + g2 * e2); };
    const auto image = [&](double g1, double g2) {
        double w[3];
        fuller_barycentric(face, at(g1, g2), w);
        return net_point(face, w);
    };
    // start: the gnomonic point with the same barycentric coordinates
    double w[3];
    plane_barycentric(face, n, w);
    const double ca = dot(a, centre);
    const Vec3 g = (w[0] / ca) * a + (w[1] / ca) * b + (w[2] / ca) * c;
    double g1 = dot(g, e1), g2 = dot(g, e2);
    constexpr double h = 1e-7;
    for (int i = 0; i < kMaxIterations; ++i) {
        const NetPoint f = image(g1, g2);
        const NetPoint f1p = image(g1 + h, g2), f1m = image(g1 - h, g2);
        const NetPoint f2p = image(g1, g2 + h), f2m = image(g1, g2 - h);
        const double x1 = (f1p.x - f1m.x) / (2 * h), y1 = (f1p.y - f1m.y) / (2 * h);
        const double x2 = (f2p.x - f2m.x) / (2 * h), y2 = (f2p.y - f2m.y) / (2 * h);
        const double det = x1 * y2 - x2 * y1;
        if (!(std::fabs(det) > 0.0))
            return false;
        const double dx = f.x - n.x, dy = f.y - n.y;
        const double step1 = (dx * y2 - dy * x2) / det, step2 = (dy * x1 - dx * y1) / det;
        g1 -= step1;
        g2 -= step2;
        if (std::fabs(step1) <= kIterationTol && std::fabs(step2) <= kIterationTol) {
            *point = at(g1, g2);
            return true;
        }
    }
    return false;
}

class FullerFormulas {
public:
    explicit FullerFormulas(const double parms[16]) : option_(layout_option(parms, kLastOption)) {}

    bool valid() const { return option_ >= 0; }

    bool forward(double lam, double phi, double *x, double *y) const
    {
        const Vec3 p = to_vector(lam, phi);
        const Face &face = kFaces[face_of(p)];
        double b[3];
        fuller_barycentric(face, p, b);
        const NetPoint n = net_point(face, b);
        *x = kEdgeArc * (n.x - kNetCentre.x);
        *y = kEdgeArc * (n.y - kNetCentre.y);
        return true;
    }

    bool inverse(double x, double y, double *lam, double *phi) const
    {
        const NetPoint n = {x / kEdgeArc + kNetCentre.x, y / kEdgeArc + kNetCentre.y};
        for (const Face &face : kFaces) {
            double b[3];
            plane_barycentric(face, n, b);
            if (b[0] < -kOutlineTol || b[1] < -kOutlineTol || b[2] < -kOutlineTol)
                continue;
            Vec3 p{};
            if (!fuller_inverse(face, n, &p))
                return false;
            to_angles(p, lam, phi);
            return true;
        }
        return false;
    }

private:
    int option_;
};

// Fuller's map has no central meridian: the icosahedron fixes where everything goes.
class Fuller : public NoConstants {
public:
    Fuller(const double sphere[2], const double parms[16], const double * /*values*/)
        : radius_(sphere[0]), formulas_(parms)
    {}
    bool valid() const { return formulas_.valid(); }
    bool forward(double *point) const
    {
        double x = 0.0, y = 0.0;
        formulas_.forward(point[0], point[1], &x, &y);
        point[0] = radius_ * x;
        point[1] = radius_ * y;
        return true;
    }
    bool inverse(double *point) const
    {
        return formulas_.inverse(point[0] / radius_, point[1] / radius_, &point[0], &point[1]);
    }

private:
    double radius_;
    FullerFormulas formulas_;
};

} // namespace

GX_DEFINE_PER_CALL_PROJECTION_ROUTINES(fuller, Fuller)
