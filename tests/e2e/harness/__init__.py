"""A private desktop with real applications, and hands and eyes to use it with."""
