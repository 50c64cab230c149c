#pragma once
// Pressure-drop formulas of both kinds of network: pure functions of their arguments, of the
// current gas (GasCorrente) and of the project parameters.
//
// Units. Internal installations: Pa, Nm3/h, m. Pressure networks: kPa relative, absolute Pa
// inside the formulas (atmospheric 101325 Pa). D is the inner diameter in metres (the row's
// inner diameter in mm divided by 1000, as a float); Dmm is the same in mm.
//
// Widths: every argument and every returned value kept in single precision is a float;
// intermediates are double. The literals are exactly those the formulas have always had;
// several approximations of pi live side by side on purpose, since they show in the last
// digits of the printed results.

#include <cstdint>

#include "archives/Archivi.h"
#include "core/Documento.h"

namespace fornax {

// Pipe roughness of a pressure network, m, by the material's formula type: 0.00015 for
// steel (type 1), 0.00002 for every other type.
double Rugosita(int tipoFormula);

// The Reynolds number rounded to single precision through its decimal text, as the screening
// of diameters hands it on: 15 significant digits, then read back as a float. It differs from
// a direct rounding only next to the midpoint of two floats.
float ReynoldsDaTesto(double re);

// Drop per metre of an internal installation, Pa/m.
//  - UNI 7129 (1992) (Normativa 1): Darcy-Weisbach with a Lees-type smooth-pipe friction law
//    that carries a term of its own for the diameter:
//        Re = Q / (D * 0.785398163398 * 3600 * nu)
//        f  = 0.612 / Re^0.35 + 0.0072 + 2.9e-5 * Re^0.109 / D
//        J  = Q^2 * rho / (3.1415^2 * 1620000 * D^5) * f        (1620000 = 3600^2 / 8)
//  - UNI 7129 (2008) (any other edition): the Renouard-type monomial
//        J  = 1e4 * 2.28 * rho * Q^1.8 * 100 / (D*1000)^4.8     (x100: mbar -> Pa)
// 0 when D, Q or the viscosity is not above 0 (also in 2008, where nu plays no other part).
// Example: Q = 2 Nm3/h in D = 0.02 m with nu = 1.5e-5 m2/s gives Re = 2357.85 under 1992.
float PerditaSpecifica(const Documento& d, float D, float Q);

// Friction factor of a pressure network: a Nikuradse seed, one Prandtl smooth-pipe step, a
// roughness correction (with the transition and fully rough laws above 25 and 200 of
// Re*eps*sqrt(lambda)/D), then the Colebrook-White equation evaluated once.
float CoefficienteAttrito(float D, float Re, double eps);

// Absolute outlet pressure of a section of a pressure network, Pa, by iteration of the
// isothermal equation
//     P1a^2 - p2^2 = (0.01267452955 * rho * Q^2 / D^4) * (lambda * L / D + 2 ln(P1a / p2))
// with the friction factor recomputed each round at the mean pressure. -1 when the drop
// exceeds the pressure available. After 50 rounds the value with the smallest error wins.
double PressioneValleIterata(const Documento& d, float P1, float Q, float D, float L, double p2Iniziale,
                             int tipoFormula);

// Drop of a section of a pressure network, kPa: P1 kPa relative at the head, D m, Q Nm3/h,
// L m. 0 without flow, diameter or viscosity; -1 when the head pressure can't drive the flow
// through that length.
float PerditaSezione(const Documento& d, float P1, float D, float Q, float L, int tipoFormula);

// The same for one metre, used to screen the diameters before a trial, kPa/m.
float PerditaUnitariaPressione(const Documento& d, float D, float Q, float P1, int tipoFormula);

// Speed at normal conditions, m/s: Q * 1000 * 0.3537 / Dmm^2; 0 without a diameter.
double VelocitaNormale(float Q, float Dmm);

// Speed at the mean pressure of a section of a pressure network, m/s, from the pressures at
// its two ends (kPa relative); 0 without a diameter.
double VelocitaMedia(float Q, float Dmm, double pTesta, double pFine);

// Equivalent length of one section (ID_EQ_LEN), m, with the fittings of an internal
// installation. `modo` 1 takes the section's own inner diameter to choose the fittings'
// class, any other `modo` the reference 100 mm (used before any diameter is chosen).
void CalcolaLunghezzaEquivalente(Documento& d, const Archivi& a, int modo, int sezione);
// ... for every section 1..NumTronchi.
void CalcolaLunghezzeEquivalenti(Documento& d, const Archivi& a, int modo);

// The same for a pressure network: reference 200 mm, fittings of EQLEN.CFG (kinds 1..10),
// summed in single-precision steps.
void CalcolaLunghezzaEquivalentePressione(Documento& d, const Archivi& a, int modo, int sezione);
void CalcolaLunghezzeEquivalentiPressione(Documento& d, const Archivi& a, int modo);

int RigaTronco(const Archivi& a, const Tronco& t);
float DiametroTronco(const Archivi& a, const Tronco& t);
int TipoFormulaTronco(const Archivi& a, const Tronco& t);

}  // namespace fornax
