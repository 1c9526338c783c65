// Small experiments, a host that takes notes, and other things that the tests of this folder share.
#pragma once

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/data_object.h"
#include "evaluation/host_events.h"
#include "evaluation/step.h"
#include "evaluation/task_engine.h"
#include "nuv64/core/memory.h"
#include "nuv64/core/text_copy.h"

namespace nuv64::test {

// x = 0, 1, 2..., real part start + point, imaginary part -(start + point).
inline std::unique_ptr<cKoData> makeBlock(std::uint64_t points, double start,
                                          std::uint64_t channels = 3) {
    auto block = std::make_unique<cKoData>();
    block->SetShape(points, channels, 1, 0.0, static_cast<double>(points) - 1.0);
    for (std::uint64_t point = 0; point < points; ++point) {
        const double value = start + static_cast<double>(point);
        const double row[] = {static_cast<double>(point), value, -value};
        for (std::uint64_t channel = 0; channel < channels; ++channel) {
            block->Channel(channel)[point] = channel < 3 ? row[channel] : 0.0;
        }
    }
    return block;
}

inline void setText(OwnedText& field, const char* text) {
    field = copyText(text, std::char_traits<char>::length(text));
}

// A zone whose block k starts at 100 * k.
inline std::unique_ptr<cKoData> makeZone(std::uint64_t blocks, std::uint64_t points,
                                         const char* parameters = "BINI=1\rBEND=8\rBGRD=LIN") {
    auto zone = std::make_unique<cKoData>();
    zone->Parameters.AddText(parameters);
    for (std::uint64_t k = 0; k < blocks; ++k) {
        zone->AppendChild(makeBlock(points, 100.0 * static_cast<double>(k)).release());
    }
    return zone;
}

inline std::unique_ptr<cKoData> makeExperiment(std::uint64_t zones, std::uint64_t blocks,
                                               std::uint64_t points) {
    auto root = std::make_unique<cKoData>();
    for (std::uint64_t k = 0; k < zones; ++k) {
        root->AppendChild(makeZone(blocks, points).release());
    }
    return root;
}

// A zone that holds the curve w0 exp(-r0 x) + w1 exp(-r1 x) + ... + offset and no blocks worth it.
inline std::unique_ptr<cKoData> makeDecayZone(const std::vector<double>& weights,
                                              const std::vector<double>& rates, double offset,
                                              std::uint64_t points = 32, double end = 2.0) {
    auto zone = std::make_unique<cKoData>();
    zone->AppendChild(makeBlock(2, 0.0).release());
    zone->SetShape(points, 3, 1, 0.01, end);
    for (std::uint64_t k = 0; k < points; ++k) {
        const double x =
            0.01 + (end - 0.01) * static_cast<double>(k) / (static_cast<double>(points) - 1.0);
        double y = offset;
        for (std::size_t i = 0; i < weights.size(); ++i) y += weights[i] * std::exp(-rates[i] * x);
        zone->Channel(0)[k] = x;
        zone->Channel(1)[k] = y;
    }
    return zone;
}

inline std::vector<double> channelOf(const cKoData& node, std::uint64_t channel) {
    const double* values = node.Channel(channel);
    return values ? std::vector<double>(values, values + node.Points) : std::vector<double>();
}

// A step as a host builds one.
class HostStep : public Step {
  public:
    HostStep(std::uint64_t procedure, std::uint64_t mode, const char* parameters = nullptr) {
        Procedure = procedure;
        Mode = mode;
        if (parameters) ParameterList = NewCopyStringA(parameters, 0, UINT64_MAX);
    }
};

// A command block whose callback writes down what it is told.
struct Host {
    struct Event {
        std::uint32_t number;
        std::uint64_t procedure;  // of the record that events 20 and 53 carry
        std::uint64_t zone;
        std::string text;  // the report of event 20, the text of 63 and 64
        std::uint64_t input;
    };

    NuvCommandBlock block{};
    std::vector<Event> events;
    std::uint64_t stopAfter = UINT64_MAX;  // progress events until the stop byte is set

    Host() {
        current() = this;
        block.Callback = record;
    }
    ~Host() {
        delete block.Data;
        current() = nullptr;
    }

    std::vector<std::uint32_t> numbers() const {
        std::vector<std::uint32_t> result;
        for (const Event& event : events) result.push_back(event.number);
        return result;
    }
    std::uint64_t count(std::uint32_t number) const {
        std::uint64_t result = 0;
        for (const Event& event : events) result += event.number == number;
        return result;
    }
    std::string reports() const {
        std::string text;
        for (const Event& event : events) {
            if (event.number == EvStepReport) text += event.text;
        }
        return text;
    }

  private:
    static Host*& current() {
        static Host* host = nullptr;
        return host;
    }

    static std::uint64_t record(std::uint32_t number, NuvCommandBlock* block) {
        Host& host = *current();
        Event event{number, 0, 0, "", block->Input};
        const auto* input =
            reinterpret_cast<const void*>(static_cast<std::uintptr_t>(block->Input));
        if (number == EvStepReport || number == EvStepChangedData) {
            const auto* evp = static_cast<const EvpRecord*>(input);
            event.procedure = evp->Procedure;
            event.zone = evp->Zone;
            if (evp->ReportText) event.text = evp->ReportText;
        } else if (number == EvFitProgress || number == EvFitEnd) {
            event.text = static_cast<const char*>(input);
        }
        host.events.push_back(event);
        if (number == EvFitProgress && host.count(EvFitProgress) >= host.stopAfter) {
            block->Output |= 1;
        }
        return 0;
    }
};

}  // namespace nuv64::test
