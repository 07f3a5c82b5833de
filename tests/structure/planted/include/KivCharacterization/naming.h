// found below include/: no inside of the module
