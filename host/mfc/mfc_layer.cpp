// Layer mfc.
