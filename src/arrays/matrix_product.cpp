// Blocks of 4 by 4 elements of the product are summed in registers, from parts of the factors that
// were packed side by side before; after K. Goto, R. van de Geijn, "Anatomy of High-Performance
// Matrix Multiplication", ACM Trans. Math. Softw. 34 (2008) 12. The inner sum is cut into parts
// that follow each other, so that each element keeps its order of additions.
#include "arrays/matrix_product.h"

#include <algorithm>

#include "arrays/column_kernels.h"

namespace nuv64 {

namespace {

constexpr uint64_t kTile = 4;
constexpr uint64_t kDepth = 128;  // terms of the inner sum at a time
constexpr uint64_t kRows = 32;    // rows of a at a time: 32 kB packed, on the stack

// Below this number of products packing costs more than it gains.
constexpr uint64_t kFewProducts = 128;

double at(const MatrixView& matrix, uint64_t r, uint64_t c) noexcept {
    return matrix.data[r * matrix.rowStep + c * matrix.columnStep];
}

void multiplyPlainly(const MatrixView& a, const MatrixView& b, uint64_t m, uint64_t k, uint64_t n,
                     double* out, uint64_t columnStep) noexcept {
    for (uint64_t j = 0; j < n; ++j) {
        for (uint64_t i = 0; i < m; ++i) {
            double sum = 0.0;
            for (uint64_t l = 0; l < k; ++l) sum += at(a, i, l) * at(b, l, j);
            out[i + j * columnStep] = sum;
        }
    }
}

// packed[4*l + i] = line i of four at depth l; lines that don't exist are zeros. A line runs along
// the inner sum: a row of a, a column of b.
void packLines(const double* from, uint64_t lineStep, uint64_t depthStep, uint64_t lines,
               uint64_t depth, double* packed) noexcept {
    if (lines == kTile) {
        for (uint64_t l = 0; l < depth; ++l) {
            const double* const place = from + l * depthStep;
            packed[4 * l] = place[0];
            packed[4 * l + 1] = place[lineStep];
            packed[4 * l + 2] = place[2 * lineStep];
            packed[4 * l + 3] = place[3 * lineStep];
        }
        return;
    }
    for (uint64_t l = 0; l < depth; ++l) {
        for (uint64_t i = 0; i < kTile; ++i) {
            packed[4 * l + i] = i < lines ? from[l * depthStep + i * lineStep] : 0.0;
        }
    }
}

struct Tile {
    Pair upper[kTile] = {};  // rows 0 and 1 of four columns
    Pair lower[kTile] = {};  // rows 2 and 3
};

void addProducts(uint64_t depth, const double* a, const double* b, Tile& tile) noexcept {
    Tile sums = tile;
    for (uint64_t l = 0; l < depth; ++l) {
        const Pair upper = loadPair(a + 4 * l);
        const Pair lower = loadPair(a + 4 * l + 2);
        for (uint64_t j = 0; j < kTile; ++j) {
            const Pair factor = bothOf(b[4 * l + j]);
            sums.upper[j] += upper * factor;
            sums.lower[j] += lower * factor;
        }
    }
    tile = sums;
}

void loadTile(Tile& tile, uint64_t rows, uint64_t cols, const double* out, uint64_t columnStep) {
    for (uint64_t j = 0; j < cols; ++j) {
        double column[kTile] = {};
        std::copy_n(out + j * columnStep, rows, column);
        tile.upper[j] = loadPair(column);
        tile.lower[j] = loadPair(column + 2);
    }
}

void storeTile(const Tile& tile, uint64_t rows, uint64_t cols, double* out, uint64_t columnStep) {
    for (uint64_t j = 0; j < cols; ++j) {
        double* const to = out + j * columnStep;
        if (rows == kTile) {
            storePair(to, tile.upper[j]);
            storePair(to + 2, tile.lower[j]);
            continue;
        }
        double column[kTile];
        storePair(column, tile.upper[j]);
        storePair(column + 2, tile.lower[j]);
        std::copy_n(column, rows, to);
    }
}

}  // namespace

void multiply(const MatrixView& a, const MatrixView& b, uint64_t m, uint64_t k, uint64_t n,
              double* out, uint64_t columnStep) noexcept {
    if (m <= kFewProducts && k <= kFewProducts && m * k * n <= kFewProducts) {
        multiplyPlainly(a, b, m, k, n, out, columnStep);
        return;
    }
    alignas(64) double packedA[kDepth * kRows];
    alignas(64) double packedB[kDepth * kTile];
    for (uint64_t l = 0; l < k; l += kDepth) {
        const uint64_t depth = std::min(kDepth, k - l);
        for (uint64_t i = 0; i < m; i += kRows) {
            const uint64_t rowEnd = std::min(i + kRows, m);
            for (uint64_t r = i; r < rowEnd; r += kTile) {
                packLines(a.data + r * a.rowStep + l * a.columnStep, a.rowStep, a.columnStep,
                          std::min(kTile, rowEnd - r), depth, packedA + (r - i) * kDepth);
            }
            for (uint64_t j = 0; j < n; j += kTile) {
                const uint64_t cols = std::min(kTile, n - j);
                packLines(b.data + l * b.rowStep + j * b.columnStep, b.columnStep, b.rowStep, cols,
                          depth, packedB);
                for (uint64_t r = i; r < rowEnd; r += kTile) {
                    const uint64_t rows = std::min(kTile, rowEnd - r);
                    double* const place = out + r + j * columnStep;
                    Tile tile;
                    if (l != 0) loadTile(tile, rows, cols, place, columnStep);
                    addProducts(depth, packedA + (r - i) * kDepth, packedB, tile);
                    storeTile(tile, rows, cols, place, columnStep);
                }
            }
        }
    }
}

}  // namespace nuv64
