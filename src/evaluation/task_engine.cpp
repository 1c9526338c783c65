#include "evaluation/task_engine.h"

#include <cstdlib>
#include <string>

#include "core/guard.h"
#include "data/data_object.h"
#include "evaluation/host_events.h"
#include "evaluation/procedures.h"
#include "evaluation/status_words.h"
#include "evaluation/step.h"
#include "nuv64/core/status.h"

namespace nuv64 {
namespace {

// The host's text of a finished step: its name, its outcome, what the procedure wrote.
OwnedText finishedReport(const EvpRecord& evp, std::uint32_t status) {
    std::string text = "#";
    text += procedureName(evp.Procedure);
    if (status != kSuccess) {
        text += "\n Error: ";
        text += KoErrorStringA(status);
        text += "\n Stop evaluation\n";
    } else {
        text += ": completed\n";
    }
    if (evp.ReportText) text += evp.ReportText;
    text += "\n";
    return copyText(text.data(), text.size());
}

void dropReport(EvpRecord& evp) noexcept {
    std::free(evp.ReportText);
    evp.ReportText = nullptr;
}

// Without memory for the report there is no event, and the step counts as failed.
std::uint32_t sendReport(EvpRecord& evp, std::uint32_t status, NuvCommandBlock* block) {
    if (!listens(block)) return status;
    const std::uint32_t reported = guardStatus([&] {
        OwnedText text = finishedReport(evp, status);
        dropReport(evp);
        evp.ReportText = text.release();
        notify(block, EvStepReport, &evp);
        return kSuccess;
    });
    dropReport(evp);
    return status != kSuccess ? status : reported;
}

std::uint32_t runOnTarget(cKoData& node, EvpRecord& evp, NuvCommandBlock* block) {
    cKoData* target = evp.OnEvaluated ? node.Evaluated : &node;
    if (!target) return status::kInterfaceError;
    const std::uint32_t status = RunOnNode(target, &evp, block);
    if (status == kSuccess && (evp.Flags & EvpDataChanged)) notify(block, EvStepChangedData, &evp);
    return status;
}

// The only child that the step names at this height; all ones for every child.
std::uint64_t namedChild(const EvpRecord& evp, std::uint64_t height) noexcept {
    if (height == 2) return evp.Zone;
    return height == 1 ? evp.Block : kUnset;
}

// The child whose pre-pass serves all children; null when each has its own.
cKoData* referenceChild(cKoData& node, const EvpRecord& evp) {
    constexpr std::uint64_t kPowerSlot = 8;
    if (evp.Flags & EvpRefFirst) return node.FirstChild();
    if (evp.Flags & EvpRefLast) return node.LastChild();
    if (evp.Flags & EvpRefStrongest) return node.StrongestChild(kPowerSlot);
    return nullptr;
}

std::uint32_t runOverChildren(cKoData& node, EvpRecord& evp, NuvCommandBlock* block) {
    cKoData* reference = referenceChild(node, evp);
    std::uint32_t status = reference ? PrePass(reference, &evp, block) : kSuccess;
    for (cKoData* child = node.FirstChild(); child && status == kSuccess; child = child->Next()) {
        if (!reference) status = PrePass(child, &evp, block);
        if (status == kSuccess) status = BlockPass(child, &evp, block);
    }
    return status;
}

enum class Stage { PrePass, BlockPass };

std::uint32_t runPass(Stage stage, cKoData* node, EvpRecord* evp, NuvCommandBlock* block) {
    if (!evp || evp->Procedure == NoProcedure) return kSuccess;
    const Procedure* procedure = findProcedure(evp->Procedure);
    if (!procedure) return status::kUnknownProcedure;
    const Pass pass = stage == Stage::PrePass ? procedure->prePass : procedure->blockPass;
    if (!pass || !node) return kSuccess;
    if (stage == Stage::PrePass) releaseCoefficients(*evp);  // it may run for every child
    return guardStatus([&] { return pass(*node, *evp, block); });
}

}  // namespace

std::uint32_t RunEvp(cKoData* root, EvpRecord* evp, NuvCommandBlock* block) {
    if (!evp) return kSuccess;
    evp->Flags &= ~EvpDataChanged;
    if (evp->Mode == 0) return kSuccess;
    std::uint32_t status = kSuccess;
    if (evp->Procedure == ExportProcedure) {
        status = status::kNotYetImplemented;
    } else if (evp->Procedure != NoProcedure) {
        status = DispatchEvp(root, evp, block);
    }
    return sendReport(*evp, status, block);
}

std::uint32_t DispatchEvp(cKoData* node, EvpRecord* evp, NuvCommandBlock* block) {
    if (!evp) return kSuccess;
    evp->Flags &= ~EvpDataChanged;
    if (evp->Procedure == NoProcedure || evp->Mode == 0) return kSuccess;
    if (!node) return status::kMissingInput;
    const std::uint64_t height = node->Height();
    if (height == evp->Level) {
        return guardStatus([&] { return runOnTarget(*node, *evp, block); });
    }
    const std::uint64_t index = namedChild(*evp, height);
    if (index != kUnset) {
        cKoData* child = node->ChildAt(index);
        return child ? DispatchEvp(child, evp, block) : kSuccess;
    }
    std::uint32_t status = kSuccess;
    for (cKoData* child = node->FirstChild(); child && status == kSuccess; child = child->Next()) {
        status = DispatchEvp(child, evp, block);
    }
    return status;
}

std::uint32_t RunOnNode(cKoData* node, EvpRecord* evp, NuvCommandBlock* block) {
    if (!evp || !node) return kSuccess;
    if (evp->Flags & EvpOverChildren) {
        if (!node->FirstChild()) return kSuccess;
        return guardStatus([&] { return runOverChildren(*node, *evp, block); });
    }
    const std::uint32_t status = PrePass(node, evp, block);
    return status == kSuccess ? BlockPass(node, evp, block) : status;
}

std::uint32_t PrePass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block) {
    return runPass(Stage::PrePass, node, evp, block);
}

std::uint32_t BlockPass(cKoData* node, EvpRecord* evp, NuvCommandBlock* block) {
    return runPass(Stage::BlockPass, node, evp, block);
}

}  // namespace nuv64
