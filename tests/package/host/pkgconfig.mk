# A host application built by a plain Makefile with pkg-config:
#   make -f pkgconfig.mk [ORVANE=Orvane6]
# The compiler flags and the libraries, Qt's included, all come from the
# library's .pc file (Orvane for Qt 5, Orvane6 for Qt 6); a private prefix
# is found through PKG_CONFIG_PATH=<prefix>/lib/pkgconfig. Qt's headers
# insist on position-independent code, hence -fPIC, as for any Qt program.
ORVANE ?= Orvane
PKG_CONFIG ?= pkg-config
CXX ?= g++
HERE := $(dir $(lastword $(MAKEFILE_LIST)))

orvane-pkgconfig-host: $(HERE)main.cpp
	$(CXX) -std=c++17 -fPIC $(CXXFLAGS) $$($(PKG_CONFIG) --cflags $(ORVANE)) -o $@ $< $$($(PKG_CONFIG) --libs $(ORVANE))
