#pragma once

/// Visibility marks: what the two shared libraries show; everything else stays hidden.
///
/// The mark is the same on both sides of a library's border, since exceptions and class records
/// cross it.
#define UTILITY_CORE_API __attribute__((visibility("default")))
#define UTILITY_UI_API __attribute__((visibility("default")))
