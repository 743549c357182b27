#include "window/widgets/view_form.h"
