#ifndef ORVANE_ORVANESLICES_H
#define ORVANE_ORVANESLICES_H

// Image slices: the slice records and the slice catalogue.

#endif // ORVANE_ORVANESLICES_H
