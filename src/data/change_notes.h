#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "data/change.h"

// What has happened to the data of late, for those who show them: a view keeps the revision that it has shown and asks
// what came behind it.

namespace tessara {

struct ChangeNote {
  ChangeKind kind = ChangeKind::kWholeData;
  ChangeExtent extent;
};

class ChangeNotes {
 public:
  // Counts up by one with each change.
  std::uint64_t revision() const { return revision_; }

  void Add(ChangeKind kind, const ChangeExtent& extent) noexcept {
    notes_[revision_ % notes_.size()] = {kind, extent};
    ++revision_;
  }

  // The changes behind a revision, in order; nothing when they are too many to be known still.
  std::optional<std::vector<ChangeNote>> Since(std::uint64_t revision) const {
    if (revision > revision_ || revision_ - revision > notes_.size()) return std::nullopt;
    std::vector<ChangeNote> since;
    for (std::uint64_t at = revision; at < revision_; ++at) since.push_back(notes_[at % notes_.size()]);
    return since;
  }

 private:
  std::array<ChangeNote, 64> notes_;
  std::uint64_t revision_ = 0;
};

}  // namespace tessara
