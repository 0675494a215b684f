#pragma once
// The order in which resources of other languages stand in for a missing one.

#include <cstdint>

// Replaces the LANGID by the next one to try and returns true; returns false when there is none
// (the neutral language 0 ends every chain). French of France walks 1036, 12, 9, 0.
bool LanguageFallback(uint16_t& languageId_IO);
