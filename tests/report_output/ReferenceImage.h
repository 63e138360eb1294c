#pragma once

#include <QImage>
#include <QString>
#include <gtest/gtest.h>

namespace quorvane::report::test {

/// Compares a picture with tests/report_output/references/NAME.png. Fonts are drawn a little differently from
/// one version of their libraries to the next, so a few pixels may differ, and any pixel a little. With
/// REPORT_REFERENCES=renew in the environment the reference is written instead: look at it before it is kept.
/// A picture that differs is left beside the test program as NAME-differs.png.
testing::AssertionResult looksLikeReference(const QImage& picture, const QString& name);

} // namespace quorvane::report::test
