#include "shell/format_operations.h"

#include <algorithm>

#include "numerics/masks.h"
#include "shell/command_row.h"

namespace tessara {
namespace {

constexpr std::size_t kMostOfAName = 40;

std::string NameOf(const Session& session) {
  return session.data.VariableName(session.format.column).substr(0, kMostOfAName);
}

std::string WhatWasSaved(const Session& session, const FormatSaved& saved) {
  std::string words = "Saved the format of " + NameOf(session);
  if (!saved.decimals_changed) return words;
  const std::size_t cells = *saved.decimals_changed;
  return words + ", " + Grouped(static_cast<double>(cells)) + (cells == 1 ? " cell rewritten" : " cells rewritten");
}

}  // namespace

WidgetAction OpenVariableFormat(Session& session) {
  // A cursor in the record numbers stands ahead of the first variable.
  PickVariable(session.format, session.data, std::max<std::size_t>(session.data.CurrentColumn, 1));
  return WidgetAction::kFormatVariables;
}

void SaveFormat(Session& session) {
  const FormatSaved saved = SaveVariableFormat(session.format, session.data);
  if (saved.stored) session.platform.SetStatusPane(kMessagePane, WhatWasSaved(session, saved));
}

void CopyFormat(Session& session) {
  CopyFormat(session.format, session.copied_format);
  session.platform.SetStatusPane(kMessagePane, "Copied the format of " + NameOf(session));
  PlaySoundEffect(session, "copy.wav");
}

void PasteFormat(Session& session) {
  PasteFormat(session.format, session.copied_format);
  if (session.copied_format.copied) {
    session.platform.SetStatusPane(kMessagePane, "Pasted the copied format; Save stores it");
  }
  PlaySoundEffect(session, "paste.wav");
}

void RevertFormat(Session& session) { RevertFormat(session.format); }

}  // namespace tessara
