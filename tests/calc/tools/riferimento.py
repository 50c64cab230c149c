#!/usr/bin/env python3
"""Reference values for the calculation tests, worked out apart from the C++ code.

Python floats are doubles; f32() rounds a value to single precision the way a float field
stores it. Run it to print the values the tests in tests/calc/ expect:

    python3 tests/calc/tools/riferimento.py

Each network below is described the same way the C++ tests build it (same materials, gas,
fittings and counts), and the sizing follows the rules of the calculation step by step.
"""

import math
import struct


def f32(x):
    return struct.unpack('<f', struct.pack('<f', x))[0]


def hexf(x):
    return '0x%08x' % struct.unpack('<I', struct.pack('<f', x))[0]


def cpp(x):
    """A float literal that reads back to the same single-precision value."""
    x = f32(x)
    for cifre in range(6, 12):
        t = '%.*g' % (cifre, x)
        if f32(float(t)) == x:
            break
    if 'e' not in t and '.' not in t:
        t += '.0'
    return t + 'f'


# ---- Gas and project ----

class Gas:
    def __init__(self, densita, viscosita, pci, famiglia):
        self.rho = f32(f32(densita) * 1.225)   # mass density kg/m3 from the relative density
        self.nu = f32(viscosita)
        self.pci = f32(pci)
        self.famiglia = famiglia


METANO = Gas(0.5547, 0.00001574, 34.01, 2)
# The rho actually used by the tests is set explicitly, so that this script doesn't depend on
# the gas archive's derivation.
METANO.rho = f32(0.6795)


class Progetto:
    def __init__(self, gas, normativa=2, pressione=False, pi=200.0, pf=150.0, vmax=15.0, dpmax=0.0):
        self.gas = gas
        self.normativa = normativa
        self.pressione = pressione
        self.pi = pi
        self.pf = pf
        self.vmax = f32(vmax)
        self.dpmax = dpmax


# ---- Formulas ----

def perdita_specifica(p, D, Q):
    D = f32(D)
    Q = f32(Q)
    nu = p.gas.nu
    rho = p.gas.rho
    if D <= 0 or Q <= 0 or nu <= 0:
        return 0.0
    if p.normativa == 1:
        Re = Q / (D * 0.785398163398 * 3600 * nu)
        f = 0.612 / Re ** 0.35 + 0.0072 + 2.9e-5 * Re ** 0.109 / D
        return f32(Q ** 2 * rho / (3.1415 ** 2 * 1620000 * D ** 5) * f)
    return f32(1e4 * 2.28 * rho * Q ** 1.8 * 100 / (D * 1000) ** 4.8)


L221, L0032, LM237, L251, L017, L371, L8 = (f32(v) for v in (0.221, 0.0032, -0.237, 2.51, 0.17, 3.71, 8.0))


def attrito(D, Re, eps, ramo=None):
    D = f32(D)
    Re = f32(Re)
    l0 = L221 * Re ** LM237 + L0032
    l1 = 1 / (-2 * math.log10(L251 / (Re * math.sqrt(l0)))) ** 2
    l2 = l1 + L017 * Re * l1 ** 2 * eps / D
    nome = 'liscio'
    if Re * eps * math.sqrt(l2) / D > 25:
        nome = 'transizione'
        l2 = (1 + L8 * D / (Re * eps)) / (2 * math.log10(L371 * D / eps)) ** 2
        if Re * eps * math.sqrt(l2) / D > 200:
            nome = 'rugoso'
            l2 = 1 / (2 * math.log10(L371 * D / eps)) ** 2
    lam = 1 / (-2 * math.log10(eps / (L371 * D) + L251 / (Re * math.sqrt(l2)))) ** 2
    if ramo is not None:
        ramo.append(nome)
    return f32(lam)


def rugosita(tipo):
    return 0.00015 if tipo == 1 else 0.00002


def valle_iterata(p, P1, Q, D, L, p2, tipo, giri=None):
    nu, rho = p.gas.nu, p.gas.rho
    P1, Q, D, L = f32(P1), f32(Q), f32(D), f32(L)
    P1a = P1 * 1000 + 101325
    n = 0
    best_err = 99999.0
    best = 0.0
    nuovo = None
    vecchio = None
    while True:
        c = 202650 / (P1 * 1000 + 101325 + p2)
        num = nu * c
        Re = Q / (D * 2827.433388 * num) * c
        lam = attrito(D, f32(Re), rugosita(tipo))
        if n == 0:
            arg = P1a / (0.99 * p2)
        else:
            arg = P1a / (p2 * (p2 / nuovo) ** 0.1)
        delta = (Q ** 2 * 0.01267452955 * rho / D ** 4) * (L * lam / D + 2 * math.log(arg))
        if delta > P1a ** 2:
            return -1.0
        nuovo = math.sqrt(P1a ** 2 - delta)
        if n >= 1:
            e = abs(nuovo / p2 - 1)
            if e < best_err:
                best_err, best = e, nuovo
            p2 = vecchio
        vecchio = nuovo
        n += 1
        err = abs(nuovo / p2 - 1)
        if giri is not None:
            giri[0] = n
        if err <= 0.0001:
            return nuovo if n < 50 else best
        if n >= 50:
            return best


def perdita_sezione(p, P1, D, Q, L, tipo):
    nu, rho = p.gas.nu, p.gas.rho
    P1, D, Q, L = f32(P1), f32(D), f32(Q), f32(L)
    if D <= 0 or Q <= 0 or nu <= 0:
        return 0.0
    c = 202650 / (p.pf * 1000 + p.pi * 1000 + 202650)
    num = nu * c
    Re = Q / (D * 2827.4328 * num) * c
    lam = attrito(D, f32(Re), rugosita(tipo))
    d0 = Q ** 2 * 101325 * rho * L * lam / (3.141592 ** 2 * 810000 * D ** 5)
    P1a = P1 * 1000 + 101325
    if P1a ** 2 < d0:
        return -1.0
    p2 = f32(math.sqrt(P1a ** 2 - d0))
    p2 = valle_iterata(p, P1, Q, D, L, p2, tipo)
    if p2 < 0:
        return -1.0
    return f32((P1a - p2) / 1000)


def perdita_unitaria(p, D, Q, P1, tipo):
    nu, rho = p.gas.nu, p.gas.rho
    P1, D, Q = f32(P1), f32(D), f32(Q)
    if D <= 0 or Q <= 0 or nu <= 0:
        return 0.0
    c = 202650 / (p.pf * 1000 + p.pi * 1000 + 202650)
    num = nu * c
    Re = Q / (D * 2827.4328 * num) * c
    Re = f32(float('%.15g' % Re))
    lam = attrito(D, Re, rugosita(tipo))
    d0 = Q ** 2 * 101325 * rho * 1.0 * lam / (3.141592 ** 2 * 810000 * D ** 5)
    P1a = P1 * 1000 + 101325
    if P1a ** 2 - d0 < 0:
        return -1.0
    p2 = f32(math.sqrt(P1a ** 2 - d0))
    p2 = f32(valle_iterata(p, P1, Q, D, 1.0, p2, tipo))
    if p2 < 0:
        return -1.0
    return f32((P1a - p2) / 1000)


def velocita0(Q, Dmm):
    Q, Dmm = f32(Q), f32(Dmm)
    if Dmm <= 0:
        return 0.0
    return Q * 1000 * 0.3537 / Dmm ** 2


def velocita_media(Q, Dmm, p1, pfin):
    if f32(Dmm) <= 0:
        return 0.0
    return 2 * velocita0(Q, Dmm) * 101.325 / (f32(p1) + f32(pfin) + 202.65)


# ---- Archives of the tests ----

# (DN, inner diameter mm): a steel table, a short copper one.
ACCIAIO = [('3/8"', 12.6), ('1/2"', 16.1), ('3/4"', 21.7), ('1"', 27.3), ('1 1/4"', 36.0),
           ('1 1/2"', 41.9), ('2"', 53.1), ('2 1/2"', 68.9), ('3"', 80.9), ('4"', 105.3)]
RAME = [('10x1', 8.0), ('12x1', 10.0), ('14x1', 12.0), ('16x1', 14.0), ('18x1', 16.0),
        ('22x1', 20.0), ('28x1', 26.0)]

# Built-in fittings (family 1..3, class 1..4) of kinds 1 bends, 2 T fittings, 3 elbows, 4 taps.
INTERNI = {
    1: [[0.2, 0.5, 0.8, 1.5], [0.2, 0.5, 0.8, 1.5], [0.2, 0.5, 1.0, 1.5]],
    2: [[0.8, 2.0, 4.0, 6.5], [0.8, 2.0, 4.0, 6.5], [1.0, 2.5, 4.5, 7.5]],
    3: [[1.0, 1.5, 3.0, 4.5], [1.0, 1.5, 3.0, 4.5], [1.0, 2.0, 3.0, 5.0]],
    4: [[0.3, 0.8, 1.5, 2.0], [0.3, 0.8, 1.5, 2.0], [0.3, 0.8, 1.5, 2.0]],
}
# Pressure fittings (<= 50, 50..125, > 125 mm) of kinds 1..10, as the tests fill them.
PRESSIONE = {1: (0.7, 1.75, 2.8), 2: (3.0, 7.5, 12.0), 3: (1.5, 3.75, 6.0), 4: (0.15, 0.38, 0.6),
             5: (1.0, 2.5, 4.0), 6: (0.8, 2.0, 3.2), 7: (0.0, 0.0, 0.0), 8: (0.4, 1.0, 1.6),
             9: (0.9, 2.25, 3.6), 10: (2.25, 5.6, 9.0)}


def lunghezza_interna(tipo, D, fam):
    D = f32(D)
    cl = 0 if D <= 22.3 else 1 if D <= 53.9 else 2 if D <= 81.7 else 3
    return f32(INTERNI[tipo][fam - 1][cl]) if 1 <= fam <= 3 else 0.0


def lunghezza_pressione(tipo, D):
    D = f32(D)
    cl = 0 if D <= 50 else 2 if D > 125 else 1
    return f32(PRESSIONE[tipo][cl])


# ---- Networks ----

class T:
    def __init__(self, prev=0, utenze=0.0, lung=1.0, materiale=ACCIAIO, tipo=1, conteggi=(0, 0, 0, 0),
                 spc=(0,) * 6, eqnota=0.0, diametro='', bloccato=False, contemp=100):
        self.prev = prev
        self.left = 0
        self.right = 0
        self.utenze = f32(utenze)
        self.len = f32(lung)
        self.mat = materiale
        self.tipo = tipo
        self.ncurve, self.ngomiti, self.nraccordi, self.nrubinetti = conteggi
        self.spc = spc
        self.eqnota = f32(eqnota)
        self.diametro = diametro
        self.bloccato = bloccato
        self.contemp = contemp
        self.portata = 0.0
        self.eqlen = 0.0
        self.lenperc = 0.0
        self.pdc = 0.0
        self.perc = 0.0
        self.pfin = 0.0
        self.vel = 0.0
        self.ptesta = 0.0
        self.visitato = False

    def utenza(self):
        return self.left <= 0 and self.right <= 0


class Rete:
    def __init__(self, progetto, tronchi):
        self.p = progetto
        self.t = [T()] + tronchi
        for i, s in enumerate(self.t):
            if i and s.prev:
                par = self.t[s.prev]
                if par.left == 0:
                    par.left = i
                else:
                    par.right = i
        self.n = len(tronchi)
        self.maxlen = 0.0
        self.maxpdc = 0.0
        self.tab = [dict(dim=False, lung=0.0, perdita=0.0, cum=0.0, valle=0.0) for _ in self.t]

    # helpers
    def dmm(self, i):
        s = self.t[i]
        for dn, d in s.mat:
            if dn == s.diametro:
                return f32(d)
        return 0.0

    def riga(self, i):
        s = self.t[i]
        for k, (dn, d) in enumerate(s.mat):
            if dn == s.diametro:
                return k + 1
        return 0

    def limite(self):
        if self.p.dpmax > 0:
            return f32(self.p.dpmax)
        potenza = f32(self.p.gas.pci * self.t[1].portata / 3.6)
        banda = 2 if potenza > 35.0 else 1
        tab = {1: {1: 50.0, 2: 100.0, 3: 200.0}, 2: {1: 50.0, 2: 50.0, 3: 200.0}}
        return f32(tab[banda][self.p.gas.famiglia])

    def rispettati(self):
        lim = self.limite()
        return all(self.t[i].perc <= lim for i in range(1, self.n + 1))

    def eqlen(self, i, modo):
        s = self.t[i]
        fam = self.p.gas.famiglia
        D = self.dmm(i) if modo == 1 else 100.0
        s.eqlen = f32(s.len + s.ncurve * lunghezza_interna(1, D, fam) + s.ngomiti * lunghezza_interna(3, D, fam)
                      + s.nraccordi * lunghezza_interna(2, D, fam) + s.nrubinetti * lunghezza_interna(4, D, fam)
                      + s.eqnota)

    def eqlen_p(self, i, modo):
        s = self.t[i]
        D = self.dmm(i) if modo == 1 else 200.0
        s.eqlen = s.len
        for cnt, tipo in ((s.ncurve, 1), (s.ngomiti, 3), (s.nraccordi, 2), (s.nrubinetti, 4)):
            s.eqlen = f32(s.eqlen + cnt * lunghezza_pressione(tipo, D))
        for k, cnt in enumerate(s.spc):
            s.eqlen = f32(s.eqlen + cnt * lunghezza_pressione(5 + k, D))
        s.eqlen = f32(s.eqlen + s.eqnota)

    # walks
    def aggrega(self, i):
        s = self.t[i]
        sx = self.aggrega(s.left) if s.left > 0 else 0.0
        dx = self.aggrega(s.right) if s.right > 0 else 0.0
        if s.contemp == 0:
            s.contemp = 100
        somma = sx + s.utenze + dx
        if self.p.pressione and not s.utenza():
            s.portata = f32(somma * s.contemp / 100)
        else:
            s.portata = f32(somma)
        s.visitato = True
        return f32(somma)

    def lunghezze(self, i, prog):
        if i == 0:
            return
        s = self.t[i]
        s.lenperc = f32(s.eqlen + prog)
        self.maxlen = max(self.maxlen, s.lenperc)
        self.lunghezze(s.left, s.lenperc)
        self.lunghezze(s.right, s.lenperc)

    def perdite(self, i, padre):
        if i == 0:
            return
        s = self.t[i]
        s.perc = f32(s.pdc + padre) if (s.pdc >= 0 and padre >= 0) else -1.0
        s.pfin = f32(self.p.pi - s.perc)
        self.maxpdc = max(self.maxpdc, s.perc)
        self.perdite(s.left, s.perc)
        self.perdite(s.right, s.perc)

    # paths
    def terminali(self):
        lista = []
        for i in range(1, self.n + 1):
            s = self.t[i]
            self.tab[i]['dim'] = False
            self.tab[i]['lung'] = s.eqlen
            if s.utenza():
                continue
            non = sum(1 for c in (s.left, s.right) if c > 0 and not self.t[c].utenza())
            if non == 0:
                w = max(self.t[s.left].lenperc, self.t[s.right].lenperc)
                lista.append((i, w))
                self.tab[i]['lung'] = w
        # descending, equal keys in order of insertion
        lista.sort(key=lambda x: -x[1])
        return lista

    def catena(self, k):
        c = [k]
        p = self.t[k].prev
        while p != 0 and not self.tab[p]['dim']:
            c.append(p)
            p = self.t[p].prev
        return c, p

    def percorsi(self, dimensiona_percorso):
        lista = self.terminali()
        offerti = set()
        if lista:
            dimensiona_percorso(lista[0][0], lista[0][1])
        while True:
            k = 0
            for item, _ in lista[1:]:
                if not self.tab[item]['dim'] and item not in offerti:
                    offerti.add(item)
                    k = item
                    break
            if k == 0:
                break
            dimensiona_percorso(k, self.tab[k]['lung'])

    # internal sizing
    def dimensiona_tronco(self, i, disp, resid):
        if resid == 0:
            return
        g = f32(disp / resid)
        s = self.t[i]
        if not s.bloccato:
            s.diametro = ''
            if s.portata > 0:
                scelta = None
                for dn, d in s.mat:
                    if perdita_specifica(self.p, f32(f32(d) / 1000), s.portata) <= g:
                        scelta = dn
                        break
                s.diametro = scelta if scelta is not None else s.mat[-1][0]
        self.eqlen(i, 1)
        s.pdc = f32(perdita_specifica(self.p, f32(self.dmm(i) / 1000), s.portata) * s.eqlen)
        self.tab[i]['perdita'] = s.pdc
        self.tab[i]['dim'] = True

    def dimensiona_percorso(self, k, lung):
        c, p = self.catena(k)
        disp = self.limite()
        acc = 0.0
        if p:
            lung -= self.tab[p]['lung']
            disp -= self.tab[p]['cum']
            acc = self.tab[p]['cum']
        for s in reversed(c):
            self.dimensiona_tronco(s, disp, lung)
            disp -= self.t[s].pdc
            acc += self.t[s].pdc
            self.tab[s]['cum'] = f32(acc)
            lung -= self.t[s].eqlen

    def dimensiona_rete(self):
        self.percorsi(self.dimensiona_percorso)
        for i in range(1, self.n + 1):
            if not self.tab[i]['dim']:
                disp = self.limite() - self.tab[self.t[i].prev]['cum']
                self.dimensiona_tronco(i, disp, self.t[i].eqlen)

    def imposta(self, i, r):
        s = self.t[i]
        s.diametro = s.mat[r - 1][0]
        self.eqlen(i, 1)
        s.pdc = f32(perdita_specifica(self.p, f32(self.dmm(i) / 1000), s.portata) * s.eqlen)
        self.perdite(1, 0.0)

    def riduci(self, i):
        cambiati = 0
        s = self.t[i]
        if not s.bloccato:
            d = self.dmm(i)
            r = self.riga(i)
            sx = self.dmm(s.left) if s.left else 0.0
            dx = self.dmm(s.right) if s.right else 0.0
            if d > sx and d > dx and r > 1:
                cambiati = 1
                self.imposta(i, r - 1)
                if not self.rispettati():
                    cambiati = 0
                    self.imposta(i, r)
        if s.left:
            cambiati += self.riduci(s.left)
        if s.right:
            cambiati += self.riduci(s.right)
        return cambiati

    def calcola_interna(self):
        for i in range(1, self.n + 1):
            self.t[i].visitato = False
            self.t[i].contemp = 100
        self.aggrega(1)
        for i in range(1, self.n + 1):
            self.eqlen(i, 2)
        self.lunghezze(1, 0.0)
        self.dimensiona_rete()
        for i in range(1, self.n + 1):
            self.eqlen(i, 1)
        self.lunghezze(1, 0.0)
        self.dimensiona_rete()
        self.perdite(1, 0.0)
        giri = 0
        while self.riduci(1) > 0:
            giri += 1
        self.perdite(1, 0.0)
        for i in range(1, self.n + 1):
            self.t[i].vel = f32(velocita0(self.t[i].portata, self.dmm(i)))
        return giri

    # pressure sizing
    def dimensiona_tronco_p(self, i, disp, lung):
        if lung == 0:
            return
        s = self.t[i]
        if s.ptesta < 0:
            s.pdc = -1.0
            return
        g = disp / lung
        if not s.bloccato:
            s.pdc = 0.0
            s.diametro = ''
        if not s.bloccato and s.portata > 0 and s.eqlen > 0:
            for dn, d in s.mat:
                if s.diametro != '':
                    break
                D = f32(f32(d) / 1000)
                u = perdita_unitaria(self.p, D, s.portata, s.ptesta, s.tipo)
                if u < 0 or u > g:
                    continue
                s.diametro = dn
                self.eqlen_p(i, 1)
                s.pdc = perdita_sezione(self.p, s.ptesta, D, s.portata, s.eqlen, s.tipo)
                s.pfin = f32(s.ptesta - s.pdc)
                v = velocita_media(s.portata, d, s.ptesta, s.pfin)
                if not (s.pdc >= 0 and v <= self.p.vmax and s.pdc / s.eqlen <= g):
                    s.diametro = ''
            if s.diametro == '':
                dn, d = s.mat[-1]
                s.diametro = dn
                s.pdc = perdita_sezione(self.p, s.ptesta, f32(f32(d) / 1000), s.portata, s.eqlen, s.tipo)
                self.tab[i]['dim'] = True
                return
        self.eqlen_p(i, 1)
        s.pdc = perdita_sezione(self.p, s.ptesta, f32(self.dmm(i) / 1000), s.portata, s.eqlen, s.tipo)
        s.pfin = f32(s.ptesta - s.pdc)
        self.tab[i]['perdita'] = s.pdc
        self.tab[i]['dim'] = True

    def dimensiona_percorso_p(self, k, lung):
        c, p = self.catena(k)
        disp = self.p.pi - self.p.pf
        pressione = self.p.pi
        if p:
            lung -= self.tab[p]['lung']
            pressione = self.tab[p]['valle']
            disp -= self.p.pi - pressione
        for i in reversed(c):
            s = self.t[i]
            s.ptesta = f32(pressione)
            if disp < 0:
                s.pdc = -1.0
                self.tab[i]['dim'] = True
            else:
                self.dimensiona_tronco_p(i, disp, lung)
            disp -= s.pdc
            if s.pdc >= 0:
                s.pfin = f32(s.ptesta - s.pdc)
            else:
                disp = -1.0
            pressione -= s.pdc
            self.tab[i]['valle'] = f32(pressione)
            lung -= s.eqlen

    def calcola_pressione(self):
        for i in range(1, self.n + 1):
            self.t[i].visitato = False
            if self.t[i].utenza():
                self.t[i].contemp = 100
        self.aggrega(1)
        for i in range(1, self.n + 1):
            self.eqlen_p(i, 2)
        self.lunghezze(1, 0.0)
        self.tab[0]['valle'] = f32(self.p.pi)
        self.t[0].pfin = f32(self.p.pi)
        self.t[1].ptesta = f32(self.p.pi)
        self.percorsi(self.dimensiona_percorso_p)
        for i in range(1, self.n + 1):
            if not self.tab[i]['dim'] and self.t[i].visitato:
                par = self.t[i].prev
                disp = self.tab[par]['valle'] - self.p.pf
                self.t[i].ptesta = self.t[par].pfin
                self.dimensiona_tronco_p(i, disp, self.t[i].eqlen)
                if self.t[i].pdc < 0 or (par and self.t[par].pdc < 0):
                    self.t[i].pdc = -1.0
        self.perdite(1, 0.0)
        for i in range(1, self.n + 1):
            s = self.t[i]
            s.vel = f32(velocita_media(s.portata, self.dmm(i), s.ptesta, s.pfin))
        self.errori(1)

    def errori(self, i):
        if i == 0:
            return
        s = self.t[i]
        if s.pdc < 0:
            s.pfin = -1.0
            if s.left > 0:
                self.t[s.left].pdc = -1.0
            if s.right > 0:
                self.t[s.right].pdc = -1.0
        self.errori(s.left)
        self.errori(s.right)

    def stampa(self, nome):
        print('// %s' % nome)
        for i in range(1, self.n + 1):
            s = self.t[i]
            print('{%d, %s, %s, %s, "%s", %s, %s, %s, %s, %s},' % (
                i, cpp(s.portata), cpp(s.eqlen), cpp(s.lenperc), s.diametro.replace('"', '\\"'), cpp(s.pdc),
                cpp(s.perc), cpp(s.pfin), cpp(s.vel), cpp(s.ptesta)))


# ---- The cases of the tests ----

def formule():
    p92 = Progetto(METANO, normativa=1)
    p08 = Progetto(METANO, normativa=2)
    print('// PerditaSpecifica (D m, Q Nm3/h) -> Pa/m, 1992 and 2008')
    for D, Q in ((0.0126, 0.5), (0.02, 2.0), (0.0273, 3.7), (0.0531, 12.0), (0.1053, 60.0)):
        print('{%s, %s, %s, %s},' % (cpp(D), cpp(Q), cpp(perdita_specifica(p92, D, Q)),
                                      cpp(perdita_specifica(p08, D, Q))))
    print('// CoefficienteAttrito (D, Re, eps) -> lambda, branch')
    for D, Re, eps in ((0.0531, 3000.0, 0.00002), (0.0531, 80000.0, 0.00015), (0.0126, 2.0e6, 0.00015),
                       (0.2, 5.0e7, 0.00015), (0.0161, 15000.0, 0.00002)):
        ramo = []
        lam = attrito(D, Re, eps, ramo)
        print('{%s, %s, %s, %s}, // %s' % (cpp(D), cpp(Re), repr(eps), cpp(lam), ramo[0]))
    pp = Progetto(METANO, pressione=True, pi=200.0, pf=150.0)
    print('// PerditaSezione (P1 kPa, D m, Q, L m, tipo) -> kPa')
    for P1, D, Q, L, tipo in ((200.0, 0.0273, 20.0, 50.0, 1), (181.5, 0.0161, 8.0, 120.0, 3),
                              (5.0, 0.0126, 60.0, 400.0, 1), (150.0, 0.0531, 300.0, 80.0, 1),
                              (20.0, 0.0126, 40.0, 40.0, 3)):
        print('{%s, %s, %s, %s, %d, %s},' % (cpp(P1), cpp(D), cpp(Q), cpp(L), tipo,
                                              cpp(perdita_sezione(pp, P1, D, Q, L, tipo))))
    print('// PerditaUnitariaPressione (D, Q, P1, tipo) -> kPa/m')
    for D, Q, P1, tipo in ((0.0273, 20.0, 200.0, 1), (0.0161, 8.0, 181.5, 3), (0.0126, 60.0, 5.0, 1)):
        print('{%s, %s, %s, %d, %s},' % (cpp(D), cpp(Q), cpp(P1), tipo, cpp(perdita_unitaria(pp, D, Q, P1, tipo))))
    print('// PerditaSezione past 50 rounds (best value), and -1 from the iteration itself')
    for P1, D, Q, L in ((1.0, 0.0161, 128.0, 1.0), (1.0, 0.0161, 129.3, 1.0)):
        print('{%s, %s, %s, %s, 1, %s},' % (cpp(P1), cpp(D), cpp(Q), cpp(L), cpp(perdita_sezione(pp, P1, D, Q, L, 1))))
    print('// PressioneValleIterata rounds')
    for P1, Q, D, L, tipo in ((200.0, 20.0, 0.0273, 50.0, 1), (20.0, 40.0, 0.0126, 40.0, 3),
                              (10.0, 30.0, 0.0126, 60.0, 1)):
        P1a = f32(P1) * 1000 + 101325
        lam = attrito(D, f32(f32(Q) / (f32(D) * 2827.4328 * pp.gas.nu * (202650 / (pp.pf * 1000 + pp.pi * 1000 + 202650))) * (202650 / (pp.pf * 1000 + pp.pi * 1000 + 202650))), rugosita(tipo))
        d0 = f32(Q) ** 2 * 101325 * pp.gas.rho * f32(L) * lam / (3.141592 ** 2 * 810000 * f32(D) ** 5)
        p2 = f32(math.sqrt(P1a ** 2 - d0)) if P1a ** 2 >= d0 else P1a
        giri = [0]
        v = valle_iterata(pp, P1, Q, D, L, p2, tipo, giri)
        print('// P1 %g Q %g D %g L %g: start %r -> %r after %d rounds' % (P1, Q, D, L, p2, v, giri[0]))


def lunghezze_equivalenti():
    print('// Equivalent length, internal (len, curve, gomiti, raccordi, rubinetti, nota, D, family)')
    for L, cnt, nota, D, fam in ((2.5, (1, 2, 3, 4), 0.7, 20.0, 2), (2.5, (1, 2, 3, 4), 0.0, 22.3, 3),
                                 (1.0, (4, 3, 2, 1), 0.0, 22.4, 1), (3.0, (1, 1, 1, 1), 1.5, 81.7, 3),
                                 (3.0, (2, 0, 1, 0), 0.0, 81.8, 2)):
        e = f32(f32(L) + cnt[0] * lunghezza_interna(1, D, fam) + cnt[1] * lunghezza_interna(3, D, fam)
                + cnt[2] * lunghezza_interna(2, D, fam) + cnt[3] * lunghezza_interna(4, D, fam) + f32(nota))
        print('{%s, %s, %s, %s, %s, %s, %s, %d, %s},' % (cpp(L), cnt[0], cnt[1], cnt[2], cnt[3], cpp(nota), cpp(D),
                                                          fam, cpp(e)))
    print('// Equivalent length, pressure (len, 4 counts, 6 user counts, nota, D)')
    for L, cnt, spc, nota, D in ((7.7, (1, 2, 3, 1), (1, 2, 0, 1, 3, 1), 0.3, 200.0),
                                 (12.345, (0, 0, 0, 1), (1, 2, 0, 1, 3, 1), 0.3, 50.0),
                                 (5.0, (1, 2, 3, 4), (0, 0, 0, 0, 0, 0), 0.0, 125.0)):
        e = f32(L)
        for c, t in zip(cnt, (1, 3, 2, 4)):
            e = f32(e + c * lunghezza_pressione(t, D))
        for k, c in enumerate(spc):
            e = f32(e + c * lunghezza_pressione(5 + k, D))
        e = f32(e + f32(nota))
        print('{%s, {%s}, {%s}, %s, %s, %s},' % (cpp(L), ', '.join(map(str, cnt)), ', '.join(map(str, spc)), cpp(nota),
                                                 cpp(D), cpp(e)))


def rete_interna_1992():
    # 1 -> 2 -> {3, 4}; 2 carries distinct fitting counts, so that a wrong pairing of counts and
    # kinds shows.
    p = Progetto(METANO, normativa=1)
    r = Rete(p, [T(0, lung=6.0, conteggi=(1, 2, 3, 1)),
                 T(1, lung=4.0, conteggi=(2, 0, 1, 0)),
                 T(2, utenze=1.2, lung=3.0, conteggi=(1, 1, 0, 1)),
                 T(2, utenze=2.5, lung=5.5, conteggi=(0, 1, 0, 1))])
    giri = r.calcola_interna()
    r.stampa('interna 1992, limit %r, RiduciDiametri sweeps with a change: %d, max %r %r' % (
        r.limite(), giri, r.maxpdc, r.maxlen))


def rete_interna_2008():
    # Section 6 is locked, 7 draws no flow, 8 is copper.
    p = Progetto(METANO, normativa=2, dpmax=0.0)
    r = Rete(p, [T(0, lung=3.0),                       # 1
                 T(1, lung=3.0),                       # 2
                 T(2, lung=4.0),                       # 3 terminal junction
                 T(2, lung=4.0),                       # 4 terminal junction
                 T(3, utenze=2.4, lung=6.0),           # 5
                 T(3, utenze=0.9, lung=6.0, diametro='1"', bloccato=True),  # 6
                 T(4, utenze=0.0, lung=6.0),           # 7
                 T(4, utenze=3.1, lung=6.0, materiale=RAME, tipo=2)])  # 8
    giri = r.calcola_interna()
    r.stampa('interna 2008, limit %r, sweeps %d, max %r %r' % (r.limite(), giri, r.maxpdc, r.maxlen))


def rete_ordine(inverso=False):
    # Two terminal junctions (3 and 4) of equal weight under a trunk of two sections: the one
    # taken second is given only its parent's own length off the remaining length, so the
    # order in which equal paths are taken shows in the diameters.
    p = Progetto(METANO, normativa=2)
    r = Rete(p, [T(0, lung=13.0), T(1, lung=2.0), T(2, lung=5.0), T(2, lung=5.0),
                 T(3, utenze=2.4, lung=10.0), T(3, utenze=2.0, lung=10.0), T(4, utenze=1.3, lung=10.0),
                 T(4, utenze=2.3, lung=10.0)])
    if inverso:
        ordine = r.terminali
        r.terminali = lambda: sorted(ordine(), key=lambda x: (-x[1], -x[0]))
    giri = r.calcola_interna()
    r.stampa('pesi uguali%s, sweeps %d' % (' (ordine inverso)' if inverso else '', giri))


def rete_riduci():
    # Sizing gives the root 1 1/4"; two sweeps narrow it to 3/4", as wide as derivation 2, where
    # it has to stop.
    p = Progetto(METANO, normativa=2)
    r = Rete(p, [T(0, lung=2.0), T(1, utenze=4.0, lung=3.0), T(1, utenze=0.7, lung=16.0)])
    giri = r.calcola_interna()
    r.stampa('riduci, sweeps %d' % giri)


def rete_sola_utenza():
    p = Progetto(METANO, normativa=2)
    r = Rete(p, [T(0, utenze=2.0, lung=40.0)])
    r.calcola_interna()
    r.stampa('una sola utenza, limit %r' % r.limite())


def rete_interna_dpmax():
    for dpmax in (8.0, 0.5):
        p = Progetto(METANO, normativa=2, dpmax=dpmax)
        r = Rete(p, [T(0, lung=12.0, conteggi=(2, 2, 0, 1)), T(1, utenze=9.0, lung=25.0, conteggi=(4, 0, 0, 1))])
        giri = r.calcola_interna()
        r.stampa('interna DpMax %g, sweeps %d' % (dpmax, giri))


def rete_pressione():
    # Junction 2 at 60%; 1 -> 2 -> {3, 4}, 1 -> 5.
    p = Progetto(METANO, pressione=True, pi=100.0, pf=60.0, vmax=20.0)
    r = Rete(p, [T(0, lung=80.0, conteggi=(2, 0, 1, 0), spc=(1, 0, 0, 0, 0, 2)),
                 T(1, lung=60.0, contemp=60, spc=(0, 1, 0, 0, 0, 0)),
                 T(2, utenze=12.0, lung=45.0, conteggi=(0, 0, 0, 1)),
                 T(2, utenze=18.0, lung=30.0, materiale=RAME, tipo=2),
                 T(1, utenze=25.0, lung=70.0, conteggi=(3, 0, 0, 0))])
    r.calcola_pressione()
    r.stampa('pressione 100/60, vmax 20')


def rete_pressione_esaurita():
    # The budget runs out halfway down the longest path: section 2, copper at its largest size,
    # overspends, and section 3 finds nothing left.
    p = Progetto(METANO, pressione=True, pi=30.0, pf=20.0, vmax=25.0)
    r = Rete(p, [T(0, lung=100.0), T(1, lung=100.0, materiale=RAME, tipo=2), T(2, lung=100.0),
                 T(3, utenze=40.0, lung=50.0), T(1, utenze=5.0, lung=20.0)])
    r.calcola_pressione()
    r.stampa('pressione esaurita 30/20')


def rete_pressione_rovescia():
    p = Progetto(METANO, pressione=True, pi=100.0, pf=120.0)
    r = Rete(p, [T(0, lung=10.0), T(1, lung=10.0), T(2, utenze=5.0, lung=10.0), T(2, utenze=3.0, lung=5.0)])
    r.calcola_pressione()
    r.stampa('pressione finale sopra iniziale 100/120')


if __name__ == '__main__':
    formule()
    lunghezze_equivalenti()
    rete_interna_1992()
    rete_interna_2008()
    rete_ordine()
    rete_ordine(True)
    rete_riduci()
    rete_sola_utenza()
    rete_interna_dpmax()
    rete_pressione()
    rete_pressione_esaurita()
    rete_pressione_rovescia()
