#pragma once

// What nearly every file includes. Each file still names what it needs: the presets for developing
// build without this.

#include <QAbstractItemModel>
#include <QByteArray>
#include <QFileInfo>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
