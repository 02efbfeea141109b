#ifndef ORVANE_RDXURL_H
#define ORVANE_RDXURL_H

/// @file
/// Product web links. A host opens its product pages through the maker's
/// redirect endpoint, `http://<host>/go?pid=<product id>&a=<page code>`, whose
/// server resolves the page: the code comes from the page category, the
/// product id from the current language pack (getCurrentLocalePackName()).
///
/// A host hands its product ids per pack to setRdxPIDMap() once at start-up
/// and calls jumpRdxByLaunchApp() once per start; openRdxUrl() opens a page
/// in the system browser.
///
/// The page codes are fixed by the library: the table is re-written with its
/// defaults on every access, and setRdxUrlCategoryMap() has no lasting effect.
/// Category3 and Category4 share "ds"; Category9 has no code, so its URL ends
/// in "&a=". A pack without a product id gets 0, and that entry stays in the
/// table. The endpoint's host name is a build setting of the product family
/// (the CMake cache variable ORVANE_RDX_HOST); its default lies under the
/// reserved ".example" domain, which never resolves.
///
/// The tables are created on first use and live until the process ends; they
/// are not locked, so use them from the GUI thread.
///
/// @code{.cpp}
/// Orvane::setRdxPIDMap({{"English", 1001}, {"German", 1002}});
/// Orvane::jumpRdxByLaunchApp();             // once per start
/// ...
/// Orvane::openRdxUrl(Orvane::Category2);    // a help menu's entry
/// @endcode

#include <Orvane/orvane_export.h>

#include <QMap>
#include <QString>

namespace Orvane {

/// Page categories. FirstLaunch and UpgradeLaunch are the pages of
/// jumpRdxByLaunchApp(); the others mean what the host makes them mean. The
/// comment of each enumerator is its page code in the URL. The enumeration
/// has int as its underlying type; a value outside it gives a URL ending in
/// "&a=".
enum RdxUrlCategory : int {
    Category0 = 0,      ///< "db"
    Category1 = 1,      ///< "g"
    Category2 = 2,      ///< "r"
    Category3 = 3,      ///< "ds"
    Category4 = 4,      ///< "ds"
    Category5 = 5,      ///< "do"
    Category6 = 6,      ///< "c3"
    Category7 = 7,      ///< "dh"
    Category8 = 8,      ///< "dp"
    Category9 = 9,      ///< no code
    FirstLaunch = 10,   ///< "i"
    UpgradeLaunch = 11, ///< "u"
    Category12 = 12     ///< "c1"
};

/// Replaces the product ids per language pack (pack name to id) as a whole.
/// Any map is accepted; an empty one leaves every pack with id 0.
/// @guithread
ORVANE_EXPORT void setRdxPIDMap(const QMap<QString, int> &map);

/// Accepted for compatibility; the page codes stay the library's.
/// @guithread
ORVANE_EXPORT void setRdxUrlCategoryMap(const QMap<RdxUrlCategory, QString> &map);

/// The current pack's product id in decimal, "0" when the pack has none.
/// @guithread
ORVANE_EXPORT QString getCurrentPID();

/// Opens the category's redirect URL in the system's default browser.
/// @badinput A failure to launch is ignored; a category outside the
/// enumeration opens the URL with an empty page code.
/// @guithread
ORVANE_EXPORT void openRdxUrl(RdxUrlCategory category);

/// The launch rule: with no version stored under "version" in the host's
/// settings, opens the FirstLaunch page; with a stored version that is less
/// than getAppVersion() as a plain string (so "1.9.1" is not less than
/// "1.10.0"), opens the UpgradeLaunch page. Either way it then stores the
/// current version; otherwise it does nothing. Logs "curVersion: " and the
/// version.
/// @guithread
ORVANE_EXPORT void jumpRdxByLaunchApp();

} // namespace Orvane

#endif // ORVANE_RDXURL_H
