# SPDX-License-Identifier: GPL-3.0-or-later
# What nearly every file includes of libraries, read once per build instead of once per file. How much that saves depends
# on the compiler: docs/decisions/0024-two-compilers.md.
#
# Each source still includes what it uses: builds with a compiler cache, which serves single files better,
# go without and fail where an include is missing.

set(precompiled_default ON)
if(CMAKE_CXX_COMPILER_LAUNCHER)
  set(precompiled_default OFF)
endif()
option(MELL_PRECOMPILED_HEADERS "Read the headers of libraries once per build" ${precompiled_default})

# mell_precompile(TARGET) makes the header for the target; mell_precompile(TARGET OTHER) uses that of the other.
function(mell_precompile target)
  if(NOT MELL_PRECOMPILED_HEADERS)
    return()
  endif()
  if(ARGC GREATER 1)
    target_precompile_headers(${target} REUSE_FROM ${ARGV1})
    return()
  endif()
  # TBB before Qt, whose word "emit" is the name of a function there.
  target_precompile_headers(${target} PRIVATE
    <tbb/parallel_for.h> <tbb/parallel_reduce.h> <tbb/parallel_sort.h>
    <algorithm> <array> <atomic> <cmath> <cstdint> <filesystem> <functional> <limits> <map> <memory>
    <numeric> <optional> <random> <set> <span> <string> <string_view> <unordered_map> <utility> <vector>
    <QCheckBox> <QCoreApplication> <QEvent> <QFileInfo> <QHash> <QLabel> <QList> <QMap> <QMouseEvent>
    <QObject> <QPainter> <QPointer> <QString> <QStringList> <QToolButton> <QVariant> <QWidget>
    <QMatrix4x4> <QVector3D> <QVector4D>)
  get_target_property(libraries ${target} LINK_LIBRARIES)
  if("GTest::gtest" IN_LIST libraries)
    target_precompile_headers(${target} PRIVATE <gtest/gtest.h>)
  endif()
endfunction()
