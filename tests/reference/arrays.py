#!/usr/bin/env python3
"""Makes the tables of the array tests: exact inputs, results by mpmath with 60 digits.

usage: /usr/bin/python3 tests/reference/arrays.py smoothing > tests/arrays/smoothing_reference.inc
       /usr/bin/python3 tests/reference/arrays.py real_matrix > tests/arrays/real_matrix_reference.inc

Filter coefficients come from the pseudo-inverse of the Vandermonde matrix by an orthogonal
decomposition, inverses from an LU decomposition, singular values from mpmath's own SVD: none of
these is the method of the module.
"""
import random
import sys

import mpmath as mp

mp.mp.dps = 60
rng = random.Random(31415)


def hexes(values):
    return "{" + ", ".join(float(v).hex() for v in values) + "}"


def numbers(values):
    return "{" + ", ".join(mp.nstr(mp.mpf(v), 30, min_fixed=-5, max_fixed=5) for v in values) + "}"


def by_columns(matrix):
    return [matrix[r, c] for c in range(matrix.cols) for r in range(matrix.rows)]


def filter_coefficients(d, points, order, shift):
    if order == 0:
        return [mp.mpf(1) / points] * points
    half = mp.mpf(points - 1) / 2
    v = mp.matrix(points, order + 1)
    for j in range(points):
        z = j - mp.mpf(shift) - half
        for k in range(order + 1):
            v[j, k] = z**k
    q, r = mp.qr(v, mode="skinny")
    # Row d of the pseudo-inverse inverse(R)*transpose(Q).
    unit = mp.matrix(order + 1, 1)
    unit[d] = 1
    row = mp.lu_solve(r.T, unit)
    return [mp.factorial(d) * x for x in q * row]


def filters():
    print("// derivative, points, order, shift, coefficients, gain")
    print("const FilterCase kFilters[] = {")
    cases = [(0, 17, 3, 0), (0, 17, 3, 8), (0, 17, 3, -8), (1, 9, 4, 0), (2, 11, 5, 0.5), (0, 5, 2, 0),
             (3, 21, 5, -2.25), (0, 3, 0, 1), (0, 1, 0, 0), (1, 41, 5, 3), (0, 8, 3, 0), (4, 25, 5, 2)]
    for d, points, order, shift in cases:
        c = filter_coefficients(d, points, order, shift)
        gain = mp.sqrt(sum(x * x for x in c))
        print(f"    {{{d}, {points}, {order}, {float(shift).hex()}, {numbers(c)}, {numbers([gain])[1:-1]}}},")
    print("};\n")


def random_matrix(rows, cols):
    return mp.matrix([[rng.uniform(-1, 1) for _ in range(cols)] for _ in range(rows)])


def graded(rows, cols, condition):
    """A matrix of doubles with singular values spread evenly in logarithm over the condition."""
    k = min(rows, cols)
    u, _ = mp.qr(random_matrix(rows, k), mode="skinny")
    v, _ = mp.qr(random_matrix(cols, k), mode="skinny")
    s = mp.diag([mp.mpf(condition) ** (-mp.mpf(i) / (k - 1)) for i in range(k)])
    return (u * s * v.T).apply(lambda x: mp.mpf(float(x)))


def inverses():
    print("// n, right-hand sides, matrix, right-hand side, inverse, solution; all by columns")
    print("const InverseCase kInverses[] = {")
    matrices = [random_matrix(1, 1), random_matrix(2, 2), random_matrix(5, 5), random_matrix(9, 9),
                mp.matrix([[float(mp.mpf(1) / (i + j + 1)) for j in range(6)] for i in range(6)]),
                graded(7, 7, 1e6), mp.matrix([[0, 2, 0], [3, 0, 0], [0, 0, -1]])]
    for a in matrices:
        n, m = a.rows, 2
        b = random_matrix(n, m)
        inverse = a**-1
        print(f"    {{{n}, {m}, {hexes(by_columns(a))}, {hexes(by_columns(b))},\n     "
              f"{numbers(by_columns(inverse))},\n     {numbers(by_columns(inverse * b))}}},")
    print("};\n")


def singular_values():
    print("// rows, columns, matrix by columns, singular values")
    print("const SingularCase kSingular[] = {")
    deficient = random_matrix(6, 2) * random_matrix(2, 4)
    deficient = deficient.apply(lambda x: mp.mpf(float(x)))
    matrices = [random_matrix(1, 1), random_matrix(1, 4), random_matrix(4, 1), random_matrix(5, 3), random_matrix(3, 5),
                random_matrix(7, 7), random_matrix(4, 5), deficient, graded(8, 6, 1e14), graded(5, 9, 1e10),
                mp.matrix(3, 2)]
    for a in matrices:
        tall = a if a.rows >= a.cols else a.T
        s = sorted(mp.svd_r(tall, compute_uv=False), reverse=True)
        print(f"    {{{a.rows}, {a.cols}, {hexes(by_columns(a))},\n     {numbers(s)}}},")
    print("};")


tables = {"smoothing": [filters], "real_matrix": [inverses, singular_values]}
print("// Made by tests/reference/arrays.py; inputs exact, results to 30 digits.")
print("// clang-format off")
for table in tables[sys.argv[1]]:
    table()
print("// clang-format on")
