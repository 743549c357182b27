#include "window/view_form.h"
