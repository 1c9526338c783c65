// Search along one parameter after another, with a common step that grows by 1.2 after a round with
// progress and is halved after one without.
#include "core/guard.h"
#include "fits/minimiser.h"

namespace nuv64 {

namespace {

class CoordinateSearch {
  public:
    explicit CoordinateSearch(MultiParamFit& fit) noexcept : fit_(fit) {}

    std::uint32_t search() {
        std::uint32_t status = limit();
        for (double s = fit_.step; status == kSuccess && s > fit_.tolerance;) {
            improved_ = false;
            for (std::uint64_t k = 0; status == kSuccess && k < fit_.fittedCount; ++k) {
                status = searchAlong(fit_.fittedList[k], s);
            }
            s = improved_ ? 1.2 * s : 0.5 * s;
        }
        return status;
    }

  private:
    std::uint32_t limit() const noexcept {
        return fit_.calls >= fit_.maxCalls ? kTooManyCalls : kSuccess;
    }

    struct Point {
        double x;  // as the score function left it: it may clamp
        double score;
    };

    std::uint32_t evaluate(double* parameter, double x, Point* point) {
        *parameter = x;
        const std::uint32_t status = evaluateScore(fit_);
        *point = {*parameter, fit_.score};
        return status;
    }

    std::uint32_t accept(double* parameter, const Point& point) {
        place_ = point.x;
        improved_ = true;
        *parameter = point.x;
        return recordBest(fit_, point.score);
    }

    // Leaves the parameter at its best place, also when the limit of calls is reached on the way.
    std::uint32_t searchAlong(double* parameter, double s) {
        place_ = *parameter;
        const std::uint32_t status = probe(parameter, s);
        if (status == kSuccess || status == kTooManyCalls) {
            *parameter = place_;
            fit_.score = fit_.bestScore;
        }
        return status;
    }

    std::uint32_t probe(double* parameter, double s) {
        const double start = place_;
        Point below{};
        Point above{};
        std::uint32_t status = evaluate(parameter, start - s, &below);
        const bool stopsHere = status == kSuccess && limit() != kSuccess;
        if (status == kSuccess && !stopsHere) status = evaluate(parameter, start + s, &above);
        if (status != kSuccess) return status;
        if (below.score < fit_.bestScore) {
            status = accept(parameter, below);
            return status == kSuccess ? walk(parameter, -s) : status;
        }
        if (!stopsHere && above.score < fit_.bestScore) {
            status = accept(parameter, above);
            return status == kSuccess ? walk(parameter, s) : status;
        }
        return limit();
    }

    std::uint32_t walk(double* parameter, double s) {
        std::uint32_t status = limit();
        while (status == kSuccess) {
            Point next{};
            status = evaluate(parameter, place_ + s, &next);
            if (status != kSuccess) return status;
            if (!(next.score < fit_.bestScore)) return limit();
            status = accept(parameter, next);
            if (status == kSuccess) status = limit();
        }
        return status;
    }

    MultiParamFit& fit_;
    double place_ = 0.0;  // the best value so far of the parameter in hand
    bool improved_ = false;
};

}  // namespace

std::uint32_t searchByCoordinates(MultiParamFit& fit) {
    return CoordinateSearch(fit).search();
}

}  // namespace nuv64
