#pragma once

#include "shell/session.h"

// What the desk calculator's keys and menu do beside its arithmetic: sounds, clipboard and printer.

namespace tessara {

void StoreCalculatorMemory(Session& session, CalcMemory memory);

// The chosen line of the tape goes to the entry, and its number to the clipboard; a line without a number goes there as
// it is.
void CopyChosenTapeLine(Session& session);
// The display's number to the clipboard; nothing when it shows none.
void CopyDisplay(Session& session);
void CopyWholeTape(Session& session);
void PrintTape(Session& session);

// The clipboard's number becomes the entry. False when the clipboard holds none.
bool PasteNumber(Session& session);

// The number that a transfer takes along: that of the tape's chosen line, or else of the display; empty for none.
std::string NumberToTransfer(const DeskCalculator& calculator);

}  // namespace tessara
