VSELECT customer_identifier, customer_first_name, customer_last_name, customer_street_address, customer_city, customer_zip, CASE WHEN a = 1 AND b = 2 THEN 'x' ELSE 'y' END flag
FROM customers -- c1
-- own line
WHERE x = 1 /* inline */ AND y = 2
AND some_function(alpha, beta, gamma, delta, epsilon, zeta, eta, theta, iota, kappa, lambda, mu) > 0
