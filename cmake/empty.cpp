// Stands in for a floor that holds headers only.
