// The headers of the toolkit that most files include. Every file still includes what it uses.
#include <QtCore/QtCore>
#include <QtGui/QPainter>
#include <QtGui/QtEvents>
#include <QtWidgets/QtWidgets>
#include <algorithm>
#include <functional>
#include <memory>
#include <vector>
