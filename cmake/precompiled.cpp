// Carries a precompiled header; it has no code of its own.
