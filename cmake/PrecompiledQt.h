#pragma once

// What nearly every source behind the windows needs, curated.

#include "Precompiled.h"

#include <QApplication>
#include <QEvent>
#include <QString>
#include <QWidget>
