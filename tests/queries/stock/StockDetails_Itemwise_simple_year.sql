-- simple average of a whole year from the yearly totals
--
-- set year = 2003-04-01 .. 2004-03-31
-- call StockDetails_Itemwise as second_year
-- ValuationMethod = SimpleAvg
select item_id , openingquantity as qty_opening , openingvalue as value_opening , totalpurchasequantity as qty_inwards , totalpurchasevalue as value_inwards , totalsalesquantity as qty_outwards , totalsalesvalue as value_outwards , ( openingquantity + totalpurchasequantity - totalsalesquantity ) as qty_closing , case when ( openingquantity + totalpurchasequantity ) = 0   then 0 else (( openingvalue + totalpurchasevalue ) / ( openingquantity + totalpurchasequantity  )) * ( openingquantity + totalpurchasequantity - totalsalesquantity ) end as value_closing from itemdetailsasledger where yearno = 2
