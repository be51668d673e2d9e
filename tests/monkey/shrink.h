// Makes a log that ends in a failure as short as it goes.
#pragma once

#include <functional>

#include <QList>

#include "monkey/action.h"

/// How a program ends that did not fail, but had too often nothing to act at.
inline constexpr int kAtNothing = 4;

/// The fewest of `actions`, in their order, for which `fails` still holds: leaves out halves,
/// quarters, ... single ones, as long as that helps. `actions` themselves fail.
QList<Action> Shrunk(QList<Action> actions,
                     const std::function<bool(const QList<Action>& actions)>& fails);

/// How a replay of the actions by `program` ends: the line that says what failed, or the signal;
/// empty where nothing fails.
QByteArray FailureOf(const QString& program, const QList<Action>& actions);
